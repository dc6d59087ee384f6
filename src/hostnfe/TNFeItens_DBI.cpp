#include "TNFeItens_DBI.h"

#include "TConexaoSQL.h"
#include "TnfeProc.h"
#include "Valores.h"

#include <QRegularExpression>

namespace TNFeItens_DBI {

namespace {

QString SoDigitos(QString t)
{
    return t.remove(QRegularExpression(QStringLiteral("[^0-9]")));
}

// A GTIN the layout takes (8, 12, 13 or 14 digits), else "SEM GTIN".
QString Gtin(const QString &gtin)
{
    static const QRegularExpression valido(QStringLiteral("^([0-9]{8}|[0-9]{12,14})$"));
    return valido.match(gtin).hasMatch() ? gtin : QStringLiteral("SEM GTIN");
}

QString GrupoCST(int cst)
{
    switch (cst) {
    case 0: return QStringLiteral("ICMS00");
    case 10: return QStringLiteral("ICMS10");
    case 20: return QStringLiteral("ICMS20");
    case 30: return QStringLiteral("ICMS30");
    case 40: case 41: case 50: return QStringLiteral("ICMS40");
    case 51: return QStringLiteral("ICMS51");
    case 60: return QStringLiteral("ICMS60");
    case 70: return QStringLiteral("ICMS70");
    case 90: return QStringLiteral("ICMS90");
    default: return {};
    }
}

QString GrupoCSOSN(int csosn)
{
    switch (csosn) {
    case 101: return QStringLiteral("ICMSSN101");
    case 102: case 103: case 300: case 400: return QStringLiteral("ICMSSN102");
    case 201: return QStringLiteral("ICMSSN201");
    case 202: case 203: return QStringLiteral("ICMSSN202");
    case 500: return QStringLiteral("ICMSSN500");
    case 900: return QStringLiteral("ICMSSN900");
    default: return {};
    }
}

void LerICMS(const TQ &q, int CRT, int cst, TNFeICMS &icms)
{
    const auto m = [&](const char *c) { return q.FieldByName(QLatin1String(c)).AsMoney(); };
    const auto d = [&](const char *c) { return q.FieldByName(QLatin1String(c)).AsFloat(); };
    const auto n = [&](const char *c, int padrao) {
        const TQCampo f = q.FieldByName(QLatin1String(c));
        return f.IsNull() ? padrao : f.AsInteger();
    };
    const bool simples = CRT == 1 || CRT == 4;
    if (simples) {
        icms.CSOSN = QString::number(cst);
        icms.grupo = GrupoCSOSN(cst);
    } else {
        icms.CST = QString::number(cst).rightJustified(2, QLatin1Char('0'));
        icms.grupo = GrupoCST(cst);
    }
    icms.orig = n("trib_orig", 0);
    icms.modBC = n("trib_icms_modbc", 3);
    icms.vBC = m("trib_icms_vbc");
    icms.pICMS = d("trib_icms_picms");
    icms.vICMS = m("trib_icms_vicms");
    icms.pRedBC = d("trib_icms_predbc") != 0 ? d("trib_icms_predbc") : d("icms_perc_red");
    icms.vBCFCP = m("trib_icms_vbcfcp");
    icms.pFCP = d("trib_icms_pfcp");
    icms.vFCP = m("trib_icms_vfcp");
    icms.modBCST = n("trib_icms_modbcst", 4);
    icms.pMVAST = d("trib_icms_pmvast");
    icms.pRedBCST = d("trib_icms_predbcst");
    icms.vBCST = m("trib_icms_vbcst");
    icms.pICMSST = d("trib_icms_picmsst");
    icms.vICMSST = m("trib_icms_vicmsst");
    icms.vBCFCPST = m("trib_icms_vbcfcpst");
    icms.pFCPST = d("trib_icms_pfcpst");
    icms.vFCPST = m("trib_icms_vfcpst");
    icms.vBCSTRet = m("trib_icms_vbcstret");
    icms.pST = d("trib_icms_pst");
    icms.vICMSSubstituto = m("trib_icms_vicmssubstituto");
    icms.vICMSSTRet = m("trib_icms_vicmsstret");
    icms.pCredSN = d("icms_sn_cred_perc");
    icms.vCredICMSSN = m("icms_sn_cred_val");
}

// PIS or COFINS: an empty CST is "other operations" with nothing due.
TNFeContrib Contrib(const TQCampo &cst, double aliquota, Money valor, Money base)
{
    TNFeContrib c;
    c.CST = cst.IsNull() ? QStringLiteral("99") : QString::number(cst.AsInteger()).rightJustified(2, QLatin1Char('0'));
    c.aliquota = aliquota;
    c.valor = valor;
    c.vBC = aliquota != 0 || valor != Money() ? base : Money();
    return c;
}

Money Percentual(Money base, double taxa)
{
    return base.times(taxa / 100).roundTo(2);
}

} // namespace

bool Carregar(TConexaoSQL &conexao, int emprCod, int compraCod, const TRegras &regras, TnfeProc &nfe, QString *erro)
{
    const auto falhar = [&](const QString &texto) {
        if (erro)
            *erro = texto;
        return false;
    };
    const auto q = conexao.Ab(QStringLiteral(
        "select i.*, p.descr as prod_descr, p.gtin, p.ncm as prod_ncm, coalesce(u.sigla, up.sigla) as sigla\r\n"
        "from compra_item_tmp i\r\n"
        "left join prod p on p.prod_cod=i.prod_cod\r\n"
        "left join unid u on u.unid_cod=i.unid_cod\r\n"
        "left join unid up on up.unid_cod=p.unid_cod\r\n"
        "where i.empr_cod=%1 and i.estacao_cod=10 and i.compra_cod=%2\r\n"
        "order by i.ordem, i.compra_item_tmp_cod").arg(emprCod).arg(compraCod));
    if (!q)
        return falhar(QStringLiteral("Erro lendo os itens da nota: %1").arg(conexao.UltimoErro()));
    if (q->IsEmpty())
        return falhar(QStringLiteral("Esta nota não possui itens cadastrados. A NFe não foi gerada"));
    const auto texto = [&](const char *c) { return q->FieldByName(QLatin1String(c)).AsString().trimmed(); };
    const auto m = [&](const char *c) { return q->FieldByName(QLatin1String(c)).AsMoney(); };
    const auto d = [&](const char *c) { return q->FieldByName(QLatin1String(c)).AsFloat(); };
    nfe.itens.Clear();
    QChar direcao;
    for (q->First(); !q->Eof(); q->Next()) {
        const QString onde = QStringLiteral("Item %1 (produto %2): ").arg(texto("ordem"), texto("prod_cod"));
        TItem &it = nfe.itens.Add();
        it.nItem = nfe.itens.Count();
        it.cProd = texto("prod_cod");
        it.cEAN = it.cEANTrib = Gtin(texto("gtin"));
        it.xProd = (texto("prod_descr").isEmpty() ? texto("prod_descr_fornec") : texto("prod_descr")).left(120);
        it.NCM = SoDigitos(texto("ncm").isEmpty() ? texto("prod_ncm") : texto("ncm"));
        it.CFOP = SoDigitos(texto("cfop"));
        it.uCom = it.uTrib = texto("sigla");
        if (it.NCM.isEmpty())
            return falhar(onde + QStringLiteral("indique o NCM"));
        if (it.CFOP.size() != 4)
            return falhar(onde + QStringLiteral("indique o CFOP"));
        if (it.uCom.isEmpty())
            return falhar(onde + QStringLiteral("indique a unidade"));
        const QChar sentido = QLatin1String("123").contains(it.CFOP.front()) ? u'0' : u'1';
        if (!direcao.isNull() && sentido != direcao)
            return falhar(onde + QStringLiteral("o CFOP %1 não tem a direção (entrada ou saída) dos demais itens. "
                                                "Corrija e tente novamente").arg(it.CFOP));
        direcao = sentido;
        if (it.CFOP.front() == u'3' || it.CFOP.front() == u'7')
            nfe.ide.idDest = 3;
        // The goods leave in stock units, as posting counts them: packages times units per package.
        it.qCom = it.qTrib = RoundTo(RoundTo(d("emb_qtd"), 3) * RoundTo(d("qtd_embs"), 3), 3);
        it.vProd = m("custo_tot").roundTo(2);
        it.vUnCom = it.vUnTrib = it.qCom != 0 ? m("custo_tot").toDouble() / it.qCom : 0;
        it.vDesc = m("desconto").roundTo(2);
        it.vFrete = m("frete").roundTo(2);
        it.vSeg = m("seguro").roundTo(2);
        it.vOutro = m("outras").roundTo(2);
        it.infAdProd = texto("info_adic").left(500);

        const int cst = q->FieldByName(QStringLiteral("trib_icms_cst")).AsInteger();
        LerICMS(*q, regras.CRT, cst, it.ICMS);
        if (it.ICMS.grupo.isEmpty())
            return falhar(onde + QStringLiteral("a situação tributária %1 do ICMS não vale para o regime tributário da "
                                                "empresa. Corrija e tente novamente").arg(cst));
        const Money vipi = m("vipi").roundTo(2);
        if (vipi != Money() && regras.finNFe == 4) {
            it.pDevol = 100;
            it.vIPIDevol = vipi;
        } else if (vipi != Money()) {
            it.IPI.presente = true;
            it.IPI.cEnq = QStringLiteral("999");
            it.IPI.CST = sentido == u'0' ? QStringLiteral("00") : QStringLiteral("50");
            it.IPI.vBC = it.vProd;
            it.IPI.pIPI = d("pipi");
            it.IPI.vIPI = vipi;
        }
        it.PIS = Contrib(q->FieldByName(QStringLiteral("cst_pis")), d("ppis"), m("vpis").roundTo(2), it.vProd);
        it.COFINS = Contrib(q->FieldByName(QStringLiteral("cst_cofins")), d("pcofins"), m("vcofins").roundTo(2), it.vProd);

        // The reform's base leaves out the taxes it replaces and ICMS.
        TNFeIBSCBS &r = it.IBSCBS;
        r.presente = true;
        r.CST = QStringLiteral("000");
        r.cClassTrib = QStringLiteral("000001");
        r.vBC = qMax(Money(), it.vProd + it.vFrete + it.vSeg + it.vOutro - it.vDesc - it.PIS.valor - it.COFINS.valor
                                  - it.ICMS.vICMS - it.ICMS.vFCP);
        r.pIBSUF = regras.pIBSUF;
        r.pIBSMun = regras.pIBSMun;
        r.pCBS = regras.pCBS;
        r.vIBSUF = Percentual(r.vBC, r.pIBSUF);
        r.vIBSMun = Percentual(r.vBC, r.pIBSMun);
        r.vIBS = r.vIBSUF + r.vIBSMun;
        r.vCBS = Percentual(r.vBC, r.pCBS);
    }
    nfe.ide.tpNF = direcao == u'0' ? 0 : 1;
    return true;
}

} // namespace TNFeItens_DBI
