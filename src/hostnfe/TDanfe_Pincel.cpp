#include "TDanfe_Pincel.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace TDanfePincel {

namespace {

// Text is laid out in hundredths of a millimetre: font sizes there are whole pixels, and
// measures do not depend on the device's resolution, so a page count taken before drawing
// matches the drawing.
constexpr double Escala = 100;

QFont Reduzida(const QFont &fonte, double fator)
{
    QFont f = fonte;
    f.setPixelSize(std::max(1, int(std::lround(fonte.pixelSize() * fator))));
    return f;
}

} // namespace

bool ComecarEmMilimetros(QPainter &painter, QPagedPaintDevice &dispositivo, const QPageLayout &folha)
{
    if (!dispositivo.setPageLayout(folha)) {
        dispositivo.setPageSize(folha.pageSize());
        dispositivo.setPageOrientation(folha.orientation());
    }
    if (!painter.begin(&dispositivo))
        return false;
    const int dpi = dispositivo.logicalDpiX();
    const QRect area = dispositivo.pageLayout().paintRectPixels(dpi);
    painter.translate(-area.left(), -area.top());
    painter.scale(dpi / 25.4, dispositivo.logicalDpiY() / 25.4);
    painter.setRenderHint(QPainter::Antialiasing, false);
    return true;
}

QFont Fonte(double pontos, bool negrito, bool estreita)
{
    QFont f;
    f.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans"), QStringLiteral("Arial"),
                   QStringLiteral("Helvetica")});
    f.setPixelSize(int(std::lround(pontos * 25.4 / 72 * Escala)));
    f.setBold(negrito);
    if (estreita)
        f.setStretch(QFont::Condensed);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

double LarguraTexto(const QFont &fonte, const QString &texto)
{
    return QFontMetricsF(fonte).horizontalAdvance(texto) / Escala;
}

double AlturaLinha(const QFont &fonte)
{
    return QFontMetricsF(fonte).height() / Escala;
}

QStringList Quebrar(const QFont &fonte, const QString &texto, double largura, int maxLinhas)
{
    const QFontMetricsF fm(fonte);
    const double limite = largura * Escala;
    QStringList linhas;
    for (const QString &paragrafo : texto.split(QLatin1Char('\n'))) {
        QString linha;
        for (const QString &palavra : paragrafo.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString tentativa = linha.isEmpty() ? palavra : linha + QLatin1Char(' ') + palavra;
            if (fm.horizontalAdvance(tentativa) <= limite) {
                linha = tentativa;
                continue;
            }
            if (!linha.isEmpty())
                linhas << linha;
            linha = palavra;
            // A word wider than the line goes by characters.
            while (fm.horizontalAdvance(linha) > limite && linha.size() > 1) {
                int n = linha.size() - 1;
                while (n > 1 && fm.horizontalAdvance(linha.left(n)) > limite)
                    --n;
                linhas << linha.left(n);
                linha = linha.mid(n);
            }
        }
        if (!linha.isEmpty() || paragrafo.trimmed().isEmpty())
            linhas << linha;
    }
    while (!linhas.isEmpty() && linhas.back().isEmpty())
        linhas.removeLast();
    if (maxLinhas > 0 && linhas.size() > maxLinhas) {
        const QString resto = linhas.mid(maxLinhas - 1).join(QLatin1Char(' '));
        linhas = linhas.mid(0, maxLinhas - 1);
        linhas << fm.elidedText(resto, Qt::ElideRight, limite);
    }
    return linhas;
}

void TPincel::Retangulo(const QRectF &r, double espessura)
{
    m_p.setPen(QPen(Qt::black, espessura));
    m_p.setBrush(Qt::NoBrush);
    m_p.drawRect(r);
}

void TPincel::Linha(double x1, double y1, double x2, double y2, double espessura, bool tracejada)
{
    QPen caneta(Qt::black, espessura);
    if (tracejada)
        caneta.setStyle(Qt::DashLine);
    m_p.setPen(caneta);
    m_p.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void TPincel::Escrever(double x, double yBase, const QString &texto, const QFont &fonte)
{
    m_p.save();
    m_p.translate(x, yBase);
    m_p.scale(1 / Escala, 1 / Escala);
    m_p.setFont(fonte);
    m_p.setPen(Qt::black);
    m_p.drawText(QPointF(0, 0), texto);
    m_p.restore();
}

void TPincel::Texto(const QRectF &r, const QString &texto, const QFont &fonte, Qt::Alignment alinhamento)
{
    if (texto.isEmpty())
        return;
    QFont f = fonte;
    for (double fator = 0.95; LarguraTexto(f, texto) > r.width() && fator > 0.74; fator -= 0.05)
        f = Reduzida(fonte, fator);
    const QFontMetricsF fm(f);
    const QString visivel = fm.elidedText(texto, Qt::ElideRight, r.width() * Escala);
    const double w = fm.horizontalAdvance(visivel) / Escala;
    double x = r.left();
    if (alinhamento & Qt::AlignRight)
        x = r.right() - w;
    else if (alinhamento & Qt::AlignHCenter)
        x = r.left() + (r.width() - w) / 2;
    const double h = fm.height() / Escala;
    double y = r.top();
    if (alinhamento & Qt::AlignVCenter)
        y = r.top() + (r.height() - h) / 2;
    else if (alinhamento & Qt::AlignBottom)
        y = r.bottom() - h;
    Escrever(x, y + fm.ascent() / Escala, visivel, f);
}

void TPincel::Linhas(const QRectF &r, const QStringList &linhas, const QFont &fonte, Qt::Alignment alinhamento)
{
    const double h = AlturaLinha(fonte);
    const auto cabem = qsizetype(std::floor((r.height() + 0.01) / h));
    for (qsizetype i = 0; i < linhas.size() && i < cabem; ++i) {
        // The last line that fits says that more was left out.
        const bool corta = i + 1 == cabem && i + 1 < linhas.size();
        Texto(QRectF(r.left(), r.top() + double(i) * h, r.width(), h),
              corta ? linhas[i] + QStringLiteral(" …") : linhas[i], fonte, alinhamento & Qt::AlignHorizontal_Mask);
    }
}

void TPincel::Campo(const QRectF &r, const QString &titulo, const QString &valor, Qt::Alignment alinhamento,
                    bool negrito)
{
    Retangulo(r);
    const QRectF dentro = r.adjusted(0.8, 0.4, -0.8, -0.4);
    const QFont ft = FonteTitulo();
    Texto(QRectF(dentro.left(), dentro.top(), dentro.width(), AlturaLinha(ft)), titulo, ft);
    QFont fv = FonteValor();
    fv.setBold(negrito);
    Texto(QRectF(dentro.left(), dentro.top() + AlturaLinha(ft), dentro.width(), dentro.height() - AlturaLinha(ft)),
          valor, fv, alinhamento | Qt::AlignVCenter);
}

void TPincel::TituloBloco(double y, const QString &titulo)
{
    const QFont f = Fonte(6, true);
    Texto(QRectF(Esquerda, y - AlturaTituloBloco, Largura, AlturaTituloBloco), titulo, f, Qt::AlignLeft | Qt::AlignVCenter);
}

void TPincel::Barras(const QRectF &r, const std::vector<int> &larguras)
{
    int modulos = 0;
    for (const int l : larguras)
        modulos += l;
    if (modulos == 0)
        return;
    // Whole dots per module keep every bar the same width on a printer.
    const double pontosPorMm = m_p.device() ? m_p.device()->logicalDpiX() / 25.4 : 0;
    double modulo = r.width() / modulos;
    if (pontosPorMm > 0 && std::floor(modulo * pontosPorMm) >= 1)
        modulo = std::floor(modulo * pontosPorMm) / pontosPorMm;
    double x = r.left() + (r.width() - modulo * modulos) / 2;
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(Qt::black);
    for (std::size_t i = 0; i < larguras.size(); ++i) {
        const double w = larguras[i] * modulo;
        if (i % 2 == 0)
            m_p.drawRect(QRectF(x, r.top(), w, r.height()));
        x += w;
    }
}

void TPincel::MarcaDagua(const QRectF &r, const QString &texto)
{
    QPainterPath caminho;
    caminho.addText(0, 0, Fonte(40, true), texto);
    const QRectF limites = caminho.boundingRect();
    // As large as fits in `r` once turned by 30 degrees.
    const double w = limites.width() / Escala, h = limites.height() / Escala;
    const double seno = 0.5, cosseno = std::sqrt(3.0) / 2;
    const double fator = 0.9 * std::min(r.width() / (w * cosseno + h * seno), r.height() / (w * seno + h * cosseno));
    m_p.save();
    m_p.translate(r.center());
    m_p.rotate(-30);
    m_p.scale(fator / Escala, fator / Escala);
    m_p.translate(-limites.center());
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(QColor(0, 0, 0, 40));
    m_p.drawPath(caminho);
    m_p.restore();
}

} // namespace TDanfePincel
