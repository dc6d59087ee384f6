#include "TClientManager1_PrepGrid.h"

#include "TClientDataSet.h"
#include "TClientManager.h"

#include <utility>

namespace {

// Characters of the widest value a column usually shows.
constexpr std::pair<const char *, int> Larguras[] = {
    {"TIPO_DOC_STR", 20},       // "RETORNO DE COMODATO"
    {"DOC_STR", 11},            // "001-0000345"
    {"DT_DOC", 8},              // "dd/mm/yy"
    {"DTh_SAI", 19},            // "dd/mm/yyyy hh:mm:ss"
    {"FORNEC_NOME_RED", 24},
    {"serie", 5},
    {"NDOC", 9},
    {"TOT", 11},
    {"BAIXADO_STR", 4},
    {"CANCELADO_STR", 4},
    {"DTH_CRI", 14},            // "dd/mm/yy hh:nn"
    {"NFE_DTH_EMISS", 19},
    {"NFE_NUM", 9},
    {"NFE_CHAVE", 44},          // an access key has 44 digits
    {"NFE_PROTOCOLO", 15},
    {"NFE_JUSTIFICATIVA", 30},
    {"NFE_CHAVE_REF", 44},
    {"NFE_DTH_canc", 19},
    {"TOT_PRODS", 11},
    {"IPI", 10},
    {"ICMS", 10},
    {"FCP", 10},
    {"FCPST", 10},
    {"FRETE", 10},
    {"OUTRAS", 10},
    {"DESCONTO", 10},
    {"DOC_ORIG_STR", 6},
    {"DESTIN_EMPR_RAZ", 30},
    {"EMPR_COD", 3},
    {"DESTIN_EMPR_COD", 4},
    {"ESTACAO_COD", 4},
    {"compra_COD", 7},
    {"NFE_CHAVE_REF2", 44},
    {"NFE_CHAVE_REF3", 44},
    {"NFE_CHAVE_REF4", 44},
    {"NFE_CHAVE_REF5", 44},
};

} // namespace

void TClientManager1_PrepGrid::Executar(TClientManager &manager)
{
    TClientDataSet *notas = manager.DataSet();
    if (!notas)
        return;
    for (const auto &[nome, largura] : Larguras)
        if (TField *campo = notas->FindField(QLatin1String(nome)))
            campo->SetDisplayWidth(largura);
}
