#include "TextoDataSet.h"

#include "TClientDataSet.h"
#include "TStringGrid.h"

#include <QList>
#include <QStringList>

namespace {

QString CampoDeLinha(QString texto)
{
    for (QChar &c : texto) {
        const QChar::Category categoria = c.category();
        if (categoria == QChar::Other_Control || categoria == QChar::Separator_Line
            || categoria == QChar::Separator_Paragraph)
            c = u' ';
    }
    return texto;
}

} // namespace

QString TextoTabulado(const TClientDataSet &dataSet)
{
    QList<int> visiveis;
    QStringList titulos;
    for (int i = 0; i < dataSet.FieldCount(); ++i) {
        if (dataSet.Fields(i).Visible()) {
            visiveis << i;
            titulos << CampoDeLinha(dataSet.Fields(i).DisplayLabel());
        }
    }
    QString texto = titulos.join(QLatin1Char('\t')) + QLatin1Char('\n');
    for (int linha = 0; linha < dataSet.RecordCount(); ++linha) {
        QStringList valores;
        for (int campo : visiveis)
            valores << CampoDeLinha(dataSet.DisplayTextAt(linha, campo));
        texto += valores.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return texto;
}

QString TextoTabulado(const TStringGrid &grade)
{
    QString texto;
    for (int linha = 0; linha < grade.RowCount(); ++linha) {
        QStringList valores;
        for (int coluna = 0; coluna < grade.ColCount(); ++coluna)
            valores << CampoDeLinha(grade.Cells(coluna, linha));
        texto += valores.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return texto;
}
