#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>

#include <vector>

class QPageLayout;
class QPagedPaintDevice;
class QPainter;

// The DANFE's drawing kit: fonts sized in points, everything placed in millimetres on the page.
namespace TDanfePincel {

constexpr double LarguraPagina = 210, AlturaPagina = 297, Margem = 6;
constexpr double Esquerda = Margem, Direita = LarguraPagina - Margem, Largura = Direita - Esquerda;

// Puts the sheet on the device (only its size and orientation where a printer refuses margins
// below its own) and begins `painter` on it, one unit a millimetre from the sheet's corner, bars
// unblurred. False when the device cannot be painted on.
bool ComecarEmMilimetros(QPainter &painter, QPagedPaintDevice &dispositivo, const QPageLayout &folha);

QFont Fonte(double pontos, bool negrito = false, bool estreita = false);
double LarguraTexto(const QFont &fonte, const QString &texto);
double AlturaLinha(const QFont &fonte);
// The text broken into lines no wider than `largura` (words first, long words by character);
// explicit line breaks are kept. With `maxLinhas`, the last line kept is elided.
QStringList Quebrar(const QFont &fonte, const QString &texto, double largura, int maxLinhas = 0);

class TPincel
{
public:
    // The painter already maps one unit to one millimetre of the page.
    explicit TPincel(QPainter &painter) : m_p(painter) {}

    void Retangulo(const QRectF &r, double espessura = 0.2);
    void Linha(double x1, double y1, double x2, double y2, double espessura = 0.15, bool tracejada = false);
    // One line inside `r`: a text too wide is drawn smaller (down to 3/4) and then elided.
    void Texto(const QRectF &r, const QString &texto, const QFont &fonte, Qt::Alignment alinhamento = Qt::AlignLeft);
    // Lines from the top of `r`, as many as fit.
    void Linhas(const QRectF &r, const QStringList &linhas, const QFont &fonte, Qt::Alignment alinhamento = Qt::AlignLeft);
    // A framed field: its caption in small capitals at the top, its value below.
    void Campo(const QRectF &r, const QString &titulo, const QString &valor, Qt::Alignment alinhamento = Qt::AlignLeft,
               bool negrito = false);
    // The caption of a group of fields, just above `y`.
    void TituloBloco(double y, const QString &titulo);
    // Bars from module widths (bar first), centred in `r` with whole device dots per module.
    void Barras(const QRectF &r, const std::vector<int> &larguras);
    // A large faint notice across `r`, drawn as outlines so that it stays out of the text.
    void MarcaDagua(const QRectF &r, const QString &texto);

private:
    void Escrever(double x, double yBase, const QString &texto, const QFont &fonte);
    QPainter &m_p;
};

constexpr double AlturaCampo = 7, AlturaTituloBloco = 3.5;
inline QFont FonteTitulo() { return Fonte(5); }
inline QFont FonteValor() { return Fonte(7.5); }

} // namespace TDanfePincel
