#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

class QPagedPaintDevice;

// The page of the line printer. Margins are in centimetres, in the order left, top, right,
// bottom; the page is A4 portrait. The line pitch is fixed, so that the number of lines a page
// holds does not depend on the font a machine has: the text form and the drawn pages break at
// the same lines.
struct TConfigPagina
{
    QString fonte = QStringLiteral("Courier New");
    int tamanho = 9;                // points
    int colunas = 100;              // characters a line
    double margemEsq = 0.5, margemTopo = 0.5, margemDir = 0.5, margemBase = 1.0;
    double entrelinha = 10;         // points from one line to the next

    void DefinirMargens(double esq, double topo, double dir, double base)
    {
        margemEsq = esq, margemTopo = topo, margemDir = dir, margemBase = base;
    }
    // Lines on a page, headings included: the A4 height less the margins over the pitch.
    int LinhasPorPagina() const;
};

// One document: what every page repeats (title, headings, column heading) and the body lines.
struct TDocImpr
{
    QString titulo;
    QStringList cabecalhos;
    QString cabecColunas;
    QStringList linhas;
};

// The host's line printer: documents of fixed-width lines, paged the same way for the text the
// printer receives and for drawing on a printer or a PDF. Each page starts with the title (the
// page number "Página n de m" at the right end of the line), the headings and the column heading.
class TImpressora final
{
public:
    explicit TImpressora(TConfigPagina config = {}) : m_config(std::move(config)) {}

    TConfigPagina &Config() { return m_config; }
    const TConfigPagina &Config() const { return m_config; }

    void IniciarDoc(const QString &titulo, const QStringList &cabecalhos, const QString &cabecColunas);
    void Imprimir(const QString &linha);
    void FimDoc() {}

    const QList<TDocImpr> &Documentos() const { return m_docs; }
    // Every page of a document as the lines printed on it.
    QList<QStringList> Paginas(const TDocImpr &doc) const;
    // Exactly the lines the printer receives, every page closed by a form feed line ("\f"); a
    // document begins on the page after the previous one's last form feed.
    QString Texto() const;

    // Draws one document on its own (a print job of its own on a printer), or all documents one
    // after another. False with the reason in erro when the device cannot begin.
    bool DesenharDoc(QPagedPaintDevice &dispositivo, int doc, QString *erro) const;
    bool DesenharTudo(QPagedPaintDevice &dispositivo, QString *erro) const;

private:
    bool desenhar(QPagedPaintDevice &dispositivo, const QList<TDocImpr> &docs, QString *erro) const;

    TConfigPagina m_config;
    QList<TDocImpr> m_docs;
};
