#pragma once

#include "TEtiquetas_DBI.h"

#include <QList>
#include <QPageLayout>
#include <QString>

#include <optional>

class QPagedPaintDevice;
class TConexaoSQL;

// One price label: the product's description, code, bar code and price.
struct TEtiqueta
{
    int prodCod = 0;
    QString descr;
    QString codigoBarras;           // what the bars encode: an EAN-13, or else the product code
    bool ean13 = false;             // else Code 128
    std::optional<Money> preco;

    bool operator==(const TEtiqueta &) const = default;
};

enum class TFormatoEtiquetas
{
    FolhaA4,    // the common A4 sheets of 3 x 10 labels of 70 x 29.7 mm
    Rolo,       // one label a row: each label is a page
};

struct TEscolhaEtiquetas
{
    bool porUnidade = false;    // one label per unit received, else one per product
    TFormatoEtiquetas formato = TFormatoEtiquetas::FolhaA4;
};

namespace TEtiquetas {

constexpr double Largura = 70, Altura = 29.7;
// More labels than this for one product are taken for a mistyped quantity.
constexpr int MaxPorProduto = 10000;

// The EAN-13 a GTIN stands for (a UPC-A gets its leading zero, a GTIN-14 that starts with zero
// loses it); empty when it is not a valid one.
QString Ean13(const QString &gtin);
// One per product; per unit, the quantity when it is whole, and one for a fractional quantity
// (goods sold by weight or length are labelled once).
int Quantas(double qtd, bool porUnidade);
// The labels of the note's lines, a product's lines taken together, in the order they first appear.
QList<TEtiqueta> Montar(const QList<TEtiquetaItem> &itens, bool porUnidade);

int Paginas(int etiquetas, TFormatoEtiquetas formato);
// "31 etiquetas em 2 páginas".
QString Resumo(int etiquetas, TFormatoEtiquetas formato);
QPageLayout Pagina(TFormatoEtiquetas formato);

// Draws every page; false with erro when the device cannot be painted on.
bool Desenhar(const QList<TEtiqueta> &etiquetas, TFormatoEtiquetas formato, QPagedPaintDevice &dispositivo,
              QString *erro);
bool GravarPdf(const QList<TEtiqueta> &etiquetas, TFormatoEtiquetas formato, const QString &arquivo, QString *erro);

// The note's lines, or nullopt once the reason was shown: the database failed, or
// "Não há itens na nota".
std::optional<QList<TEtiquetaItem>> LerItens(TConexaoSQL &conexao, const TChaveNota &nota);

} // namespace TEtiquetas
