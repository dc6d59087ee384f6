#include "TICMSUFDest_DBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

namespace TICMSUFDest_DBI {

namespace {

const QLatin1String CRLF("\r\n");

QString Int(int v) { return QString::number(v); }

} // namespace

QString SqlFornecUF(int emprCod, int estacaoCod, int compraCod)
{
    return QLatin1String("select first(1)") + CRLF + QLatin1String("fornec.uf") + CRLF + QLatin1String("from compra") + CRLF
           + QLatin1String("join fornec on") + CRLF + QLatin1String("compra.fornec_cod=fornec.fornec_cod") + CRLF
           + QLatin1String("where compra.EMPR_COD=") + Int(emprCod) + CRLF
           + QLatin1String("and compra.ESTACAO_COD=") + Int(estacaoCod) + CRLF
           + QLatin1String("and compra.COMPRA_COD=") + Int(compraCod);
}

QString SqlMovimentos(int emprCod, int estacaoCod, int compraCod)
{
    return QLatin1String("select est_mov.*, prod.descr as prod_descr, prod_fabr.nome as prod_fabr_nome") + CRLF
           + QLatin1String("from compra_est_mov") + CRLF
           + QLatin1String("join est_mov on est_mov.empr_cod=compra_est_mov.est_mov_empr_cod") + CRLF
           + QLatin1String("and est_mov.estacao_cod=compra_est_mov.est_mov_estacao_cod") + CRLF
           + QLatin1String("and est_mov.est_mov_cod=compra_est_mov.est_mov_cod") + CRLF
           + QLatin1String("join prod on est_mov.prod_cod=prod.prod_cod") + CRLF
           + QLatin1String("join prod_fabr on prod.prod_fabr_cod=prod_fabr.prod_fabr_cod") + CRLF
           + QLatin1String("where compra_est_mov.EMPR_COD=") + Int(emprCod) + CRLF
           + QLatin1String("and compra_est_mov.ESTACAO_COD=") + Int(estacaoCod) + CRLF
           + QLatin1String("and compra_est_mov.COMPRA_COD=") + Int(compraCod) + CRLF
           + QLatin1String("order by est_mov.dth_cri;");
}

QString SqlAtualizar(const TFigurasUFDest &f, int emprCod, int estacaoCod, int estMovCod)
{
    return QLatin1String("UPDATE EST_MOV SET TRIB_ICMS_VBCUFDEST=") + FloatToStrPonto(f.vbc)
           + QLatin1String(", TRIB_ICMS_PFCPUFDEST=") + FloatToStrPonto(f.pfcp)
           + QLatin1String(", TRIB_ICMS_PICMSUFDEST=") + FloatToStrPonto(f.picmsUFDest)
           + QLatin1String(", TRIB_ICMS_PICMSINTER=") + FloatToStrPonto(f.picmsInter)
           + QLatin1String(", TRIB_ICMS_PICMSINTERPART=") + FloatToStrPonto(f.picmsInterPart)
           + QLatin1String(", TRIB_ICMS_VFCPUFDEST=") + FloatToStrPonto(f.vfcp)
           + QLatin1String(", TRIB_ICMS_VICMSUFDEST=") + FloatToStrPonto(f.vicmsUFDest)
           + QLatin1String(", TRIB_ICMS_VICMSUFREMET=") + FloatToStrPonto(f.vicmsUFRemet)
           + QLatin1String(" WHERE EMPR_COD=") + Int(emprCod) + QLatin1String(" and estacao_cod=") + Int(estacaoCod)
           + QLatin1String(" and est_mov_cod=") + Int(estMovCod) + QLatin1String(";");
}

bool FornecUF(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, QString &uf)
{
    uf.clear();
    const auto q = conexao.Ab(SqlFornecUF(emprCod, estacaoCod, compraCod));
    if (!q)
        return false;
    if (!q->Eof())
        uf = q->Fields(0).AsString().trimmed();
    return true;
}

std::unique_ptr<TQ> Movimentos(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod)
{
    return conexao.Ab(SqlMovimentos(emprCod, estacaoCod, compraCod));
}

} // namespace TICMSUFDest_DBI
