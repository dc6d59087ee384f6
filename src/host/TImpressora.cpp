#include "TImpressora.h"

#include "TextosHost.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double PontosPorCm = 72.0 / 2.54;

// The configured font when the machine has a monospaced one by that name, else its fixed font.
QFont FonteMonoespacada(const TConfigPagina &config)
{
    QFont fonte(config.fonte);
    fonte.setStyleHint(QFont::TypeWriter);
    fonte.setFixedPitch(true);
    fonte.setPointSizeF(config.tamanho);
    if (QFontInfo(fonte).fixedPitch())
        return fonte;
    QFont fixa = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixa.setPointSizeF(config.tamanho);
    return fixa;
}

} // namespace

int TConfigPagina::LinhasPorPagina() const
{
    const double altura = QPageSize(QPageSize::A4).size(QPageSize::Point).height();
    const double util = altura - (margemTopo + margemBase) * PontosPorCm;
    return std::max(1, int(std::floor(util / entrelinha)));
}

void TImpressora::IniciarDoc(const QString &titulo, const QStringList &cabecalhos, const QString &cabecColunas)
{
    m_docs.append({titulo, cabecalhos, cabecColunas, {}});
}

void TImpressora::Imprimir(const QString &linha)
{
    if (m_docs.isEmpty())
        m_docs.append(TDocImpr{});
    m_docs.last().linhas << linha;
}

QList<QStringList> TImpressora::Paginas(const TDocImpr &doc) const
{
    QStringList topo = doc.cabecalhos;
    if (!doc.cabecColunas.isEmpty())
        topo << doc.cabecColunas;
    // The title line holds the page number, so a page always has room for one body line at least.
    const int porPagina = std::max(1, m_config.LinhasPorPagina() - 1 - int(topo.size()));
    const int total = std::max<int>(1, (int(doc.linhas.size()) + porPagina - 1) / porPagina);
    QList<QStringList> paginas;
    for (int n = 0; n < total; ++n) {
        QString titulo = doc.titulo;
        EscreverNaStrADir(titulo, QStringLiteral("Página %1 de %2").arg(n + 1).arg(total), m_config.colunas);
        paginas << (QStringList{titulo} + topo + doc.linhas.mid(n * porPagina, porPagina));
    }
    return paginas;
}

QString TImpressora::Texto() const
{
    QString texto;
    for (const TDocImpr &doc : m_docs)
        for (const QStringList &pagina : Paginas(doc))
            texto += pagina.join(QLatin1Char('\n')) + QStringLiteral("\n\f\n");
    return texto;
}

bool TImpressora::DesenharDoc(QPagedPaintDevice &dispositivo, int doc, QString *erro) const
{
    return desenhar(dispositivo, {m_docs.value(doc)}, erro);
}

bool TImpressora::DesenharTudo(QPagedPaintDevice &dispositivo, QString *erro) const
{
    return desenhar(dispositivo, m_docs, erro);
}

bool TImpressora::desenhar(QPagedPaintDevice &dispositivo, const QList<TDocImpr> &docs, QString *erro) const
{
    const QMarginsF margens(m_config.margemEsq * 10, m_config.margemTopo * 10, m_config.margemDir * 10,
                            m_config.margemBase * 10);
    // A printer whose least margins are wider keeps its own; the lines still fit across.
    dispositivo.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, margens, QPageLayout::Millimeter));
    QPainter pintor;
    if (!pintor.begin(&dispositivo)) {
        if (erro)
            *erro = QStringLiteral("não foi possível iniciar o documento");
        return false;
    }
    pintor.setFont(QFont(FonteMonoespacada(m_config), &dispositivo));
    pintor.setPen(Qt::black);
    const double passo = m_config.entrelinha * dispositivo.logicalDpiY() / 72.0;
    const double ascendente = QFontMetricsF(pintor.font(), &dispositivo).ascent();
    bool primeira = true;
    for (const TDocImpr &doc : docs)
        for (const QStringList &pagina : Paginas(doc)) {
            if (!primeira)
                dispositivo.newPage();
            primeira = false;
            for (int i = 0; i < pagina.size(); ++i)
                pintor.drawText(QPointF(0, ascendente + i * passo), pagina.at(i));
        }
    return pintor.end();
}
