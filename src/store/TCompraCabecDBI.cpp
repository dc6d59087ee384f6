#include "TCompraCabecDBI.h"

#include "Contexto.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "UTipoDoc.h"
#include "Valores.h"

namespace {

QString texto(const QString &t) { return QuotedStr(t.trimmed()); }
QString numero(double v) { return FloatToStrPonto(v); }
QString numero(Money v) { return FloatToStrPonto(v); }
QString inteiro(int v) { return QString::number(v); }
QString codigoOuNulo(int v) { return v > 0 ? QString::number(v) : QStringLiteral("NULL"); }

// One "column = value" pair of the header statements, with the comment the insert carries.
struct Coluna
{
    const char *nome;
    QString valor;
    const char *comentario;
};

} // namespace

Money TCompraCabecDBI::Total(Money totProds, Money frete, Money outras, Money icmsST, Money fcp, Money fcpst,
                        Money desconto, Money ipi, bool somarIPI)
{
    Money total = totProds + frete + outras + icmsST + fcp + fcpst - desconto;
    if (somarIPI)
        total += ipi;
    return total.roundTo(2);
}

QString TCompraCabecDBI::SqlInsert(const QString &infAdicFisco, const QString &infAdicContribuinte) const
{
    const QList<Coluna> colunas = {
        {"EMPR_COD", inteiro(chave.emprCod), "empr_cod"},
        {"DESTIN_EMPR_COD", inteiro(destinEmprCod), "DEST_EMPR_COD"},
        {"compra_COD", inteiro(chave.compraCod), "compra_cod"},
        {"DT_DOC", DataSQLFirebird(dtDoc), "dt_doc"},
        {"DTH_sai", DataHoraSQLFirebird(dthSai), "dth_sai"},
        {"NDOC", inteiro(ndoc), "ndoc"},
        {"SERIE", texto(serie), "serie"},
        {"FORNEC_COD", codigoOuNulo(fornecCod), "fornec_cod"},
        {"TOT_PRODS", numero(totProds), "tot prods"},
        {"IPI", numero(ipi), "ipi"},
        {"FRETE", numero(frete), "frete"},
        {"OUTRAS", numero(outras), "outras"},
        {"TOT", numero(tot), "tot"},
        {"icms", numero(icms), "icms"},
        {"fcp", numero(fcp), "fcp"},
        {"fcpst", numero(fcpst), "fcpst"},
        {"desconto", numero(desconto), "desconto"},
        {"estacao_cod", inteiro(chave.estacaoCod), "estacao_cod"},
        {"TIPO_COD", TipoDoc::SqlDoCodigo(tipoCod), "tipo_cod"},
        {"frete_modalidade", inteiro(freteModalidade), "frete_modalidade"},
        {"cfop", inteiro(cfop), "cfop"},
        {"NAT_OP_STR", texto(natOp), "nat_op_str"},
        {"NFE_CHAVE_REF", texto(chavesRef.value(0)), "nfe_chave_ref"},
        {"NFE_CHAVE_REF2", texto(chavesRef.value(1)), "nfe_chave_ref2"},
        {"NFE_CHAVE_REF3", texto(chavesRef.value(2)), "nfe_chave_ref3"},
        {"NFE_CHAVE_REF4", texto(chavesRef.value(3)), "nfe_chave_ref4"},
        {"NFE_CHAVE_REF5", texto(chavesRef.value(4)), "nfe_chave_ref5"},
        {"INF_ADIC_FISCO", texto(infAdicFisco), "inf_adic_fisco"},
        {"INF_ADIC_CONTRIBUINTE", texto(infAdicContribuinte), "inf_adic_contribuinte"},
        {"TRANSP_FORNEC_COD", codigoOuNulo(transpFornecCod), "transp_fornec_cod"},
        {"FRETE_ICMS_BC_VAL", numero(freteIcmsBCVal), "frete_icms_bc_val"},
        {"FRETE_ICMS_PERC", numero(freteIcmsPerc), "frete_icms_perc"},
        {"FRETE_ICMS_RET_VAL", numero(freteIcmsRetVal), "frete_icms_ret_val"},
        {"FRETE_CFOP", inteiro(freteCfop), "frete_cfop"},
        {"FRETE_VEI_PLACA", texto(veiPlaca), "frete_vei_placa"},
        {"FRETE_VEI_UF", texto(veiUF), "frete_vei_uf"},
        {"FRETE_VEI_ANTT", texto(veiANTT), "frete_vei_antt"},
        {"FRETE_REBOQUE1_PLACA", texto(reboque1Placa), "frete_reboque1_placa"},
        {"FRETE_REBOQUE1_UF", texto(reboque1UF), "frete_reboque1_uf"},
        {"FRETE_REBOQUE1_ANTT", texto(reboque1ANTT), "frete_reboque1_antt"},
        {"FRETE_REBOQUE2_PLACA", texto(reboque2Placa), "frete_reboque2_placa"},
        {"FRETE_REBOQUE2_UF", texto(reboque2UF), "frete_reboque2_uf"},
        {"FRETE_REBOQUE2_ANTT", texto(reboque2ANTT), "frete_reboque2_antt"},
        {"FRETE_VOLS_QTD", numero(volsQtd), "frete_vols_qtd"},
        {"FRETE_VOLS_ESPECIE", texto(volsEspecie), "frete_vols_especie"},
        {"FRETE_VOLS_MARCA", texto(volsMarca), "frete_vols_marca"},
        {"FRETE_VOLS_NUM", texto(volsNum), "frete_vols_num"},
        {"FRETE_PESO_LIQ", numero(pesoLiq), "frete_peso_liq"},
        {"FRETE_PESO_BRUTO", numero(pesoBruto), "frete_peso_bruto"},
    };
    QStringList nomes;
    QStringList valores;
    for (const Coluna &c : colunas) {
        nomes << QLatin1String(c.nome);
        valores << c.valor + QStringLiteral(" --") + QLatin1String(c.comentario);
    }
    // A comment runs to the end of its line, so the comma goes before the next value.
    return QStringLiteral("insert into compra (\r\n") + nomes.join(QStringLiteral(",\r\n"))
           + QStringLiteral("\r\n) values (\r\n") + valores.join(QStringLiteral("\r\n,")) + QStringLiteral("\r\n);");
}

QString TCompraCabecDBI::SqlUpdate() const
{
    const QList<QPair<const char *, QString>> colunas = {
        {"dth_sai", DataHoraSQLFirebird(dthSai)},
        {"NDOC", inteiro(ndoc)},
        {"serie", texto(serie)},
        {"FORNEC_COD", codigoOuNulo(fornecCod)},
        {"TOT_PRODS", numero(totProds)},
        {"IPI", numero(ipi)},
        {"FRETE", numero(frete)},
        {"OUTRAS", numero(outras)},
        {"icms", numero(icms)},
        {"fcp", numero(fcp)},
        {"fcpst", numero(fcpst)},
        {"TOT", numero(tot)},
        {"desconto", numero(desconto)},
        {"tipo_cod", TipoDoc::SqlDoCodigo(tipoCod)},
        {"frete_modalidade", inteiro(freteModalidade)},
        {"CFOP", inteiro(cfop)},
        {"NAT_OP_STR", texto(natOp)},
        {"NFE_CHAVE_REF", texto(chavesRef.value(0))},
        {"NFE_CHAVE_REF2", texto(chavesRef.value(1))},
        {"NFE_CHAVE_REF3", texto(chavesRef.value(2))},
        {"NFE_CHAVE_REF4", texto(chavesRef.value(3))},
        {"NFE_CHAVE_REF5", texto(chavesRef.value(4))},
        {"destin_empr_cod", inteiro(destinEmprCod)},
        {"TRANSP_FORNEC_COD", codigoOuNulo(transpFornecCod)},
        {"FRETE_ICMS_BC_VAL", numero(freteIcmsBCVal)},
        {"FRETE_ICMS_PERC", numero(freteIcmsPerc)},
        {"FRETE_ICMS_RET_VAL", numero(freteIcmsRetVal)},
        {"FRETE_CFOP", inteiro(freteCfop)},
        {"FRETE_VOLS_QTD", numero(volsQtd)},
        {"FRETE_VOLS_ESPECIE", texto(volsEspecie)},
        {"FRETE_VOLS_MARCA", texto(volsMarca)},
        {"FRETE_VOLS_NUM", texto(volsNum)},
        {"FRETE_VEI_PLACA", texto(veiPlaca)},
        {"FRETE_VEI_UF", texto(veiUF)},
        {"FRETE_VEI_ANTT", texto(veiANTT)},
        {"FRETE_REBOQUE1_PLACA", texto(reboque1Placa)},
        {"FRETE_REBOQUE1_UF", texto(reboque1UF)},
        {"FRETE_REBOQUE1_ANTT", texto(reboque1ANTT)},
        {"FRETE_REBOQUE2_PLACA", texto(reboque2Placa)},
        {"FRETE_REBOQUE2_UF", texto(reboque2UF)},
        {"FRETE_REBOQUE2_ANTT", texto(reboque2ANTT)},
        {"FRETE_PESO_LIQ", numero(pesoLiq)},
        {"FRETE_PESO_BRUTO", numero(pesoBruto)},
    };
    QString sql = QStringLiteral("update compra set dt_doc=") + DataSQLFirebird(dtDoc);
    for (const auto &[nome, valor] : colunas)
        sql += QLatin1Char(',') + QLatin1String(nome) + QLatin1Char('=') + valor;
    return sql + QStringLiteral(" where empr_cod=") + inteiro(chave.emprCod) + QStringLiteral(" and compra_COD=")
           + inteiro(chave.compraCod) + QStringLiteral(" and estacao_COD=") + inteiro(chave.estacaoCod);
}

QString TCompraCabecDBI::SqlNumeroUnico() const
{
    QString sql = QStringLiteral("select count(NDOC) from COMPRA where fornec_cod=") + inteiro(fornecCod)
                  + QStringLiteral(" and ndoc=") + inteiro(ndoc) + QStringLiteral(" and serie=") + texto(serie)
                  + QStringLiteral(" and ((tipo_cod is null) or (tipo_cod=") + TipoDoc::SqlDoCodigo(tipoCod)
                  + QStringLiteral("))");
    // A note being altered does not collide with itself.
    if (chave.compraCod > 0)
        sql += QStringLiteral(" and not (empr_cod=%1 and estacao_cod=%2 and compra_cod=%3)")
                   .arg(chave.emprCod).arg(chave.estacaoCod).arg(chave.compraCod);
    return sql;
}

QString TCompraCabecDBI::SqlLer() const
{
    return QStringLiteral("select compra.*, fornec.nome_red as fornec_nome_red from compra "
                          "left join fornec on fornec.fornec_cod=compra.fornec_cod where compra.empr_cod=%1 "
                          "and compra.estacao_cod=%2 and compra.compra_cod=%3")
        .arg(chave.emprCod).arg(chave.estacaoCod).arg(chave.compraCod);
}

std::optional<TCompraCabecDBI> TCompraCabecDBI::Ler(TConexaoSQL &conexao, const TChaveNota &chave, bool somarIPI,
                                                    QString *erro)
{
    TCompraCabecDBI n;
    n.chave = chave;
    const auto q = conexao.Ab(n.SqlLer());
    if (!q) {
        *erro = conexao.UltimoErro();
        return std::nullopt;
    }
    if (q->Eof()) {
        *erro = QStringLiteral("A nota %1 não foi encontrada").arg(chave.DocStr());
        return std::nullopt;
    }
    const auto s = [&q](const char *c) { return q->FieldByName(QLatin1String(c)).AsString().trimmed(); };
    const auto i = [&q](const char *c) { return q->FieldByName(QLatin1String(c)).AsInteger(); };
    const auto m = [&q](const char *c) { return q->FieldByName(QLatin1String(c)).AsMoney(); };
    const auto d = [&q](const char *c) { return q->FieldByName(QLatin1String(c)).AsFloat(); };
    n.destinEmprCod = i("destin_empr_cod");
    n.tipoCod = TipoDoc::CodigoDoChar(s("tipo_cod"));
    n.dtDoc = q->FieldByName(QStringLiteral("dt_doc")).AsDate();
    n.dthSai = q->FieldByName(QStringLiteral("dth_sai")).AsDateTime();
    n.ndoc = i("ndoc");
    n.serie = s("serie");
    n.fornecCod = i("fornec_cod");
    n.fornecNome = s("fornec_nome_red");
    n.totProds = m("tot_prods");
    n.ipi = m("ipi");
    n.frete = m("frete");
    n.outras = m("outras");
    n.icms = m("icms");
    n.fcp = m("fcp");
    n.fcpst = m("fcpst");
    n.desconto = m("desconto");
    n.tot = m("tot");
    const Money semST = Total(n.totProds, n.frete, n.outras, Money(), n.fcp, n.fcpst, n.desconto, n.ipi, somarIPI);
    n.icmsST = n.tot > semST ? n.tot - semST : Money();
    n.freteModalidade = i("frete_modalidade");
    n.cfop = i("cfop");
    n.natOp = s("nat_op_str");
    n.chavesRef = {s("nfe_chave_ref"), s("nfe_chave_ref2"), s("nfe_chave_ref3"), s("nfe_chave_ref4"), s("nfe_chave_ref5")};
    n.transpFornecCod = i("transp_fornec_cod");
    n.freteIcmsBCVal = m("frete_icms_bc_val");
    n.freteIcmsPerc = m("frete_icms_perc");
    n.freteIcmsRetVal = m("frete_icms_ret_val");
    n.freteCfop = i("frete_cfop");
    n.veiPlaca = s("frete_vei_placa");
    n.veiUF = s("frete_vei_uf");
    n.veiANTT = s("frete_vei_antt");
    n.reboque1Placa = s("frete_reboque1_placa");
    n.reboque1UF = s("frete_reboque1_uf");
    n.reboque1ANTT = s("frete_reboque1_antt");
    n.reboque2Placa = s("frete_reboque2_placa");
    n.reboque2UF = s("frete_reboque2_uf");
    n.reboque2ANTT = s("frete_reboque2_antt");
    n.volsQtd = d("frete_vols_qtd");
    n.volsEspecie = s("frete_vols_especie");
    n.volsMarca = s("frete_vols_marca");
    n.volsNum = s("frete_vols_num");
    n.pesoLiq = d("frete_peso_liq");
    n.pesoBruto = d("frete_peso_bruto");
    n.baixado = q->FieldByName(QStringLiteral("baixado")).AsBoolean();
    n.cancelado = q->FieldByName(QStringLiteral("cancelado")).AsBoolean();
    return n;
}

void TCompraCabecDBI::ParaLinhaDaLista(TClientDataSet &notas, const QString &destinEmprNome) const
{
    const auto set = [&notas](const char *campo, const QVariant &valor) {
        notas.FieldByName(QLatin1String(campo)).SetValue(valor);
    };
    const auto setMoney = [&notas](const char *campo, Money valor) {
        notas.FieldByName(QLatin1String(campo)).SetAsMoney(valor);
    };
    set("TIPO_cod", tipoCod);
    set("TIPO_DOC_STR", TipoDoc::RepTipoDocToStr(tipoCod));
    set("DOC_STR", chave.DocStr());
    notas.FieldByName(QStringLiteral("DT_DOC")).SetAsDate(dtDoc);
    notas.FieldByName(QStringLiteral("DTh_SAI")).SetAsDateTime(dthSai);
    set("FORNEC_NOME_RED", fornecNome);
    set("serie", serie);
    set("NDOC", ndoc);
    setMoney("TOT", tot);
    setMoney("TOT_PRODS", totProds);
    setMoney("IPI", ipi);
    setMoney("ICMS", icms);
    setMoney("FCP", fcp);
    setMoney("FCPST", fcpst);
    setMoney("FRETE", frete);
    setMoney("OUTRAS", outras);
    setMoney("DESCONTO", desconto);
    notas.FieldByName(QStringLiteral("BAIXADO")).SetAsBoolean(baixado);
    set("BAIXADO_STR", RepBaixadoStr(baixado));
    notas.FieldByName(QStringLiteral("CANCELADO")).SetAsBoolean(cancelado);
    set("CANCELADO_STR", RepCanceladoStr(cancelado));
    set("FORNEC_COD", fornecCod);
    set("EMPR_COD", chave.emprCod);
    set("DESTIN_EMPR_COD", destinEmprCod);
    set("DESTIN_EMPR_RAZ", destinEmprCod > 0 ? destinEmprNome : QString());
    set("ESTACAO_COD", chave.estacaoCod);
    set("compra_COD", chave.compraCod);
    set("NFE_CHAVE_REF", chavesRef.value(0));
    set("NFE_CHAVE_REF2", chavesRef.value(1));
    set("NFE_CHAVE_REF3", chavesRef.value(2));
    set("NFE_CHAVE_REF4", chavesRef.value(3));
    set("NFE_CHAVE_REF5", chavesRef.value(4));
    // A note typed here is a manual one, created now, unless the row already says otherwise.
    if (notas.FieldByName(QStringLiteral("DOC_ORIG_STR")).IsNull())
        set("DOC_ORIG_STR", QStringLiteral("MANUAL"));
    if (notas.FieldByName(QStringLiteral("DTH_CRI")).IsNull())
        notas.FieldByName(QStringLiteral("DTH_CRI")).SetAsDateTime(Contexto::Atual().Agora());
}

int TCompraCabecDBI::ProximoCodigo(TConexaoSQL &conexao)
{
    return int(conexao.ProximoGenerator(QStringLiteral("compra_g")));
}

QString TCompraCabecDBI::NomeDestino(TConexaoSQL &conexao, int destinEmprCod)
{
    if (destinEmprCod <= 0)
        return {};
    const QString nome = conexao.ValorStr(QStringLiteral("select raz from empr where empr_cod=%1").arg(destinEmprCod));
    return nome.isEmpty() ? QStringLiteral("<NÃO ENCONTRADO>") : nome.trimmed();
}
