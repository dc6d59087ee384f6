#include "URepF_CarregarDoXML.h"

#include "Dialogos.h"
#include "TImportItensDados.h"
#include "TNFe_XMLI.h"
#include "TProgresso.h"
#include "UDigitadorItens.h"

namespace {

// The item's values under the columns the typing asks for, as text with '.' for decimals.
QHash<QString, QVariant> ValoresDoItem(const TItem &item)
{
    QHash<QString, QVariant> valores = TributosDoItem(item);
    valores.insert(QStringLiteral("PROD_COD"), item.cProd);
    valores.insert(QStringLiteral("QTD"), item.qCom);
    valores.insert(QStringLiteral("CUSTO_TOT"), QVariant::fromValue(item.vProd));
    valores.insert(QStringLiteral("DESCONTO"), QVariant::fromValue(item.vDesc));
    return valores;
}

QString Texto(const QVariant &valor)
{
    return valor.metaType() == QMetaType::fromType<Money>() ? valor.value<Money>().toString() : valor.toString();
}

} // namespace

bool CarregarDoXML(const TTelaNota &Form, const QString &FileName, TProgresso &andamento)
{
    TnfeProc nfe;
    TNFe_XMLI leitor(nfe);
    if (!leitor.ImportarDoArq(FileName)) {
        MensagemErro(leitor.Erro());
        return false;
    }
    const TItemList &itens = nfe.ItemList();
    andamento.Exibir(QStringLiteral("Inserindo itens..."), itens.Count());
    TDigitadorItens digitador(Form);
    for (int i = 0; i < itens.Count(); ++i) {
        const QHash<QString, QVariant> valores = ValoresDoItem(itens.GetItem(i));
        digitador.DigitarLinha([&valores](const QString &coluna) { return Texto(valores.value(coluna)); });
        andamento.PegarAtual(i + 1);
    }
    andamento.Fechar();
    return true;
}
