#include "TChaveNota.h"

#include "TClientDataSet.h"

TNotaLinha TNotaLinha::DaLinhaAtual(const TClientDataSet &notas)
{
    auto inteiro = [&notas](const char *nome) { return notas.FieldByName(QLatin1String(nome)).AsInteger(); };
    TNotaLinha n;
    n.chave = {inteiro("EMPR_COD"), inteiro("ESTACAO_COD"), inteiro("compra_COD")};
    n.tipoCod = inteiro("TIPO_cod");
    n.fornecCod = inteiro("FORNEC_COD");
    n.destinEmprCod = inteiro("DESTIN_EMPR_COD");
    n.baixado = notas.FieldByName(QStringLiteral("BAIXADO")).AsBoolean();
    n.cancelado = notas.FieldByName(QStringLiteral("CANCELADO")).AsBoolean();
    return n;
}
