#include "URepF_ItensICMSUFDest.h"

#include "Contexto.h"
#include "Dialogos.h"
#include "ExecutarModal.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TSaidaItemEdUFDestF.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

#include <cmath>

namespace {

double Round2(double valor) { return RoundTo(valor, 2); }

TFigurasUFDest FigurasDaLinha(const TClientDataSet &cds)
{
    const QStringList &c = TSaidaItemEdUFDestF::CamposEditaveis();
    const auto valor = [&cds](const QString &campo) { return cds.FieldByName(campo).AsFloat(); };
    return TRepF_ItensICMSUFDest::Calcular(valor(c[0]), valor(c[1]), valor(c[2]), valor(c[3]), valor(c[4]));
}

} // namespace

QString TRepF_ItensICMSUFDest::CompraToFornecUF(int emprCod, int estacaoCod, int compraCod)
{
    QString uf;
    TICMSUFDest_DBI::FornecUF(TConexD::Conexao(), emprCod, estacaoCod, compraCod, uf);
    return uf;
}

QString TRepF_ItensICMSUFDest::Recusa(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, int tipoCod)
{
    if (tipoCod == TipoDoc::NotaComplementar)
        return {};
    QString ufFornec;
    if (!TICMSUFDest_DBI::FornecUF(conexao, emprCod, estacaoCod, compraCod, ufFornec))
        return QStringLiteral("Não foi possível ler a UF do fornecedor da nota: ") + conexao.UltimoErro();
    if (ufFornec.isEmpty())
        return QStringLiteral("A UF do fornecedor não foi indicada. Indique e tente novamente");
    const QString ufEmpresa = Contexto::Atual().ufEmpresa.trimmed();
    if (ufEmpresa.isEmpty())
        return QStringLiteral("A UF da empresa não foi indicada. Indique e tente novamente");
    if (ufFornec.compare(ufEmpresa, Qt::CaseInsensitive) == 0)
        return QStringLiteral("Esta opção só é válida quando o fornecedor é de uma UF diferente da empresa");
    return {};
}

QString TRepF_ItensICMSUFDest::Titulo(const QString &tipoDocStr, const QString &ndoc, const QDate &dtDoc,
                                      const QString &fornecNomeRed)
{
    return tipoDocStr + QStringLiteral("  Num: ") + ndoc + QStringLiteral("  Dt.Doc: ")
           + FormatDateTime(QStringLiteral("dd/mm/yy"), dtDoc) + QLatin1Char(' ') + fornecNomeRed + QLatin1Char(' ');
}

double TRepF_ItensICMSUFDest::PrecoLiquido(double qtd, double precoUnit, double desconto)
{
    const double q = TruncarViaStr(std::fabs(qtd), 3);
    const double p = TruncarViaStr(precoUnit, 2);
    const double d = TruncarViaStr(desconto, 2);
    return TruncarViaStr(q * p, 2) - d;
}

bool TRepF_ItensICMSUFDest::Carregar(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, TClientDataSet &cds)
{
    cds.EmptyDataSet();
    const auto q = TICMSUFDest_DBI::Movimentos(conexao, emprCod, estacaoCod, compraCod);
    if (!q) {
        MensagemErro(QStringLiteral("Não foi possível ler os movimentos da nota: ") + conexao.UltimoErro());
        return false;
    }
    cds.DisableControls();
    const auto reativar = qScopeGuard([&cds] { cds.EnableControls(); });
    const auto de = [&q](const char *coluna) { return q->FieldByName(QLatin1String(coluna)); };
    const auto para = [&cds](const QString &campo) -> TField & { return cds.FieldByName(campo); };
    for (q->First(); !q->Eof(); q->Next()) {
        const double liquido = PrecoLiquido(de("qtd").AsFloat(), de("preco_unit").AsFloat(), de("desconto").AsFloat());
        cds.Append();
        para(QStringLiteral("nitem")).SetAsInteger(de("nitem").AsInteger());
        para(QStringLiteral("prod_cod")).SetAsInteger(de("prod_cod").AsInteger());
        para(QStringLiteral("descr")).SetAsString(de("prod_descr").AsString().trimmed());
        para(QStringLiteral("prod_fabr_nome")).SetAsString(de("prod_fabr_nome").AsString().trimmed());
        for (const QString &taxa : TSaidaItemEdUFDestF::CamposEditaveis().mid(1))
            para(taxa).SetAsFloat(q->FieldByName(taxa).AsFloat());
        const double base = Round2(de("TRIB_ICMS_VBCUFDEST").AsFloat());
        para(QStringLiteral("TRIB_ICMS_VBCUFDEST")).SetAsFloat(base == 0 ? liquido : base);
        para(QStringLiteral("est_mov_empr_cod")).SetAsInteger(de("empr_cod").AsInteger());
        para(QStringLiteral("est_mov_estacao_cod")).SetAsInteger(de("estacao_cod").AsInteger());
        para(QStringLiteral("est_mov_cod")).SetAsInteger(de("est_mov_cod").AsInteger());
        para(QStringLiteral("preco_liquido")).SetAsFloat(liquido);
        CalcularLinha(cds);
        cds.Post();
    }
    cds.First();
    return true;
}

TFigurasUFDest TRepF_ItensICMSUFDest::Calcular(double vbc, double pfcp, double picmsUFDest, double picmsInter,
                                              double picmsInterPart)
{
    TFigurasUFDest f{vbc, pfcp, picmsUFDest, picmsInter, picmsInterPart};
    // The internal rate takes the base's place: what the tax figures were always computed with.
    const double u = picmsUFDest;
    f.vfcp = Round2(u * pfcp / 100);
    const double d = std::fabs((picmsInter - u) * u / 100);
    f.vicmsUFDest = Round2(d * picmsInterPart / 100);
    f.vicmsUFRemet = Round2((100 - picmsInterPart) * d / 100);
    return f;
}

void TRepF_ItensICMSUFDest::CalcularLinha(TClientDataSet &cds)
{
    const TFigurasUFDest f = FigurasDaLinha(cds);
    const QStringList &c = TSaidaItemEdUFDestF::CamposCalculados();
    cds.FieldByName(c[0]).SetAsFloat(f.vfcp);
    cds.FieldByName(c[1]).SetAsFloat(f.vicmsUFDest);
    cds.FieldByName(c[2]).SetAsFloat(f.vicmsUFRemet);
}

int TRepF_ItensICMSUFDest::Gravar(TConexaoSQL &conexao, TClientDataSet &cds)
{
    if (cds.State() == TDataSetState::Edit || cds.State() == TDataSetState::Insert)
        cds.Post();
    const auto inteiro = [&cds](const char *campo) { return cds.FieldByName(QLatin1String(campo)).AsInteger(); };
    int falhas = 0;
    for (cds.First(); !cds.Eof(); cds.Next()) {
        const TFigurasUFDest f = FigurasDaLinha(cds);
        const int empr = inteiro("est_mov_empr_cod"), estacao = inteiro("est_mov_estacao_cod"), mov = inteiro("est_mov_cod");
        if (conexao.Exec(TICMSUFDest_DBI::SqlAtualizar(f, empr, estacao, mov)))
            continue;
        ++falhas;
        MensagemErro(QStringLiteral("Não foi possível gravar o ICMS da UF de destino do movimento %1-%2-%3 (item %4): %5")
                         .arg(empr).arg(estacao).arg(mov).arg(inteiro("nitem")).arg(conexao.UltimoErro()));
    }
    return falhas;
}

bool TRepF_ItensICMSUFDest::Perguntar(int emprCod, int estacaoCod, int compraCod, const QString &fornecNomeRed,
                                      const QString &tipoDocStr, const QString &ndoc, const QDate &dtDoc,
                                      const QString &database, int tipoCod)
{
    const QString recusa = Recusa(TConexD::Conexao(), emprCod, estacaoCod, compraCod, tipoCod);
    if (!recusa.isEmpty()) {
        MensagemErro(recusa);
        return false;
    }
    TSaidaItemEdUFDestF dialogo;
    TDadosBanco banco = Contexto::Atual().banco;
    banco.database = database;
    TConexaoSQL conexao(banco);
    dialogo.Cds().EmptyDataSet();
    dialogo.DefinirCalculo(&CalcularLinha);
    dialogo.setWindowTitle(Titulo(tipoDocStr, ndoc, dtDoc, fornecNomeRed));
    const auto conectar = [&conexao, &database] {
        if (conexao.Conectar())
            return true;
        MensagemErro(QStringLiteral("Não foi possível conectar ao banco de dados %1: %2").arg(database, conexao.UltimoErro()));
        return false;
    };
    if (!conectar())
        return false;
    const bool carregou = Carregar(conexao, emprCod, estacaoCod, compraCod, dialogo.Cds());
    conexao.Desconectar();
    if (!carregou || ExecutarModal(dialogo) != QDialog::Accepted || !conectar())
        return false;
    Gravar(conexao, dialogo.Cds());
    conexao.Desconectar();
    return true;
}
