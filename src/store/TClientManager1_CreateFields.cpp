#include "TClientManager1_CreateFields.h"

#include "TClientDataSet.h"

void TClientManager1_CreateFields::Executar(TClientDataSet &notas)
{
    using T = TFieldType;
    auto visivel = [&](const char *nome, T tipo, const QString &titulo, const QString &formato = {}) {
        notas.AddField(QLatin1String(nome), tipo, titulo, formato);
    };
    auto oculto = [&](const char *nome, T tipo) {
        notas.AddField(QLatin1String(nome), tipo, {}, {}, false);
    };

    visivel("TIPO_DOC_STR", T::String, QStringLiteral("Tipo"));
    visivel("DOC_STR", T::String, QStringLiteral("Código"));
    visivel("DT_DOC", T::Date, QStringLiteral("Data"), QStringLiteral("dd/mm/yy"));
    visivel("DTh_SAI", T::DateTime, QStringLiteral("Data de Saída"));
    visivel("FORNEC_NOME_RED", T::String, QStringLiteral("Pessoa"));
    visivel("serie", T::String, QStringLiteral("Série"));
    visivel("NDOC", T::Integer, QStringLiteral("Documento"));
    visivel("TOT", T::Money, QStringLiteral("Total"), QStringLiteral("######0.00"));
    visivel("BAIXADO_STR", T::String, QStringLiteral("Baixado"));
    visivel("CANCELADO_STR", T::String, QStringLiteral("Cancelado"));
    visivel("DTH_CRI", T::DateTime, QStringLiteral("Criado em"), QStringLiteral("dd/mm/yy hh:nn"));
    visivel("NFE_DTH_EMISS", T::DateTime, QStringLiteral("Emiss.NFE"));
    visivel("NFE_NUM", T::Integer, QStringLiteral("Num.NFE"));
    visivel("NFE_CHAVE", T::String, QStringLiteral("Chave NFE"));
    visivel("NFE_PROTOCOLO", T::String, QStringLiteral("Protocolo NFE"));
    visivel("NFE_JUSTIFICATIVA", T::String, QStringLiteral("Justificativa"));
    visivel("NFE_CHAVE_REF", T::String, QStringLiteral("Chave NFE de Referência"));
    visivel("NFE_DTH_canc", T::DateTime, QStringLiteral("Dt.CancNFE"));
    visivel("TOT_PRODS", T::Money, QStringLiteral("Tot.Prod."));
    visivel("IPI", T::Money, QStringLiteral("IPI R$"));
    visivel("ICMS", T::Money, QStringLiteral("ICMS"));
    visivel("FCP", T::Money, QStringLiteral("FCP"));
    visivel("FCPST", T::Money, QStringLiteral("FCPST"));
    visivel("FRETE", T::Money, QStringLiteral("Frete"));
    visivel("OUTRAS", T::Money, QStringLiteral("Outras Desp."));
    visivel("DESCONTO", T::Money, QStringLiteral("Desconto"));
    oculto("TIPO_cod", T::Integer);
    oculto("CANCELADO", T::Boolean);
    oculto("BAIXADO", T::Boolean);
    oculto("FORNEC_COD", T::Integer);
    visivel("DOC_ORIG_STR", T::String, QStringLiteral("Orig.Doc"));
    visivel("DESTIN_EMPR_RAZ", T::String, QStringLiteral("DESTINATARIO"));
    visivel("EMPR_COD", T::Integer, QStringLiteral("Cód.Empr.Orig"), QStringLiteral("000"));
    visivel("DESTIN_EMPR_COD", T::Integer, QStringLiteral("Cód.Empr.Destino"));
    visivel("ESTACAO_COD", T::Integer, QStringLiteral("Cód.Est"));
    visivel("compra_COD", T::Integer, QStringLiteral("Cód.Compra"), QStringLiteral("000000"));
    visivel("NFE_CHAVE_REF2", T::String, QStringLiteral("Chave2 NFE de Referência"));
    visivel("NFE_CHAVE_REF3", T::String, QStringLiteral("Chave3 NFE de Referência"));
    visivel("NFE_CHAVE_REF4", T::String, QStringLiteral("Chave4 NFE de Referência"));
    visivel("NFE_CHAVE_REF5", T::String, QStringLiteral("Chave5 NFE de Referência"));
}
