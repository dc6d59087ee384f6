#include "UEtiquetas.h"

#include "Dialogos.h"
#include "ImprimirOuPdf.h"
#include "TCodigoBarras.h"
#include "TConexaoSQL.h"
#include "TDanfe_Pincel.h"
#include "TEtiquetas_DBI.h"
#include "Valores.h"

#include <QHash>
#include <QPagedPaintDevice>
#include <QPainter>

#include <cmath>

using namespace TDanfePincel;

namespace TEtiquetas {

namespace {

constexpr int Colunas = 3, LinhasFolha = 10;
constexpr double Folga = 2.5;               // inside each label, clear of the die cut
constexpr double ModuloNominal = 0.33;      // mm per bar module at 100 % magnification
constexpr int ZonaClara = 10;               // modules left blank beside the bars, each side

int PorPagina(TFormatoEtiquetas formato)
{
    return formato == TFormatoEtiquetas::FolhaA4 ? Colunas * LinhasFolha : 1;
}

// Bars as wide as the nominal module allows within `r`, the readable text under them.
void DesenharBarras(TPincel &pincel, const QRectF &r, const TEtiqueta &etiqueta)
{
    const std::vector<int> larguras = etiqueta.ean13 ? TCodigoBarras::Ean13Modulos(etiqueta.codigoBarras)
                                                     : TCodigoBarras::Code128Modulos(etiqueta.codigoBarras);
    int modulos = 0;
    for (const int l : larguras)
        modulos += l;
    if (modulos == 0)
        return;
    const QFont digitos = Fonte(6.5);
    const double alturaDigitos = AlturaLinha(digitos);
    const double modulo = std::min(ModuloNominal, r.width() / (modulos + 2 * ZonaClara));
    const double largura = modulo * modulos;
    const QRectF barras(r.left() + (r.width() - largura) / 2, r.top(), largura, r.height() - alturaDigitos);
    pincel.Barras(barras, larguras);
    pincel.Texto(QRectF(r.left(), barras.bottom(), r.width(), alturaDigitos), etiqueta.codigoBarras, digitos,
                 Qt::AlignHCenter);
}

void DesenharEtiqueta(TPincel &pincel, const QRectF &r, const TEtiqueta &etiqueta)
{
    const QRectF dentro = r.adjusted(Folga, Folga * 0.6, -Folga, -Folga * 0.6);
    const QFont descr = Fonte(8, true);
    const double alturaDescr = 2 * AlturaLinha(descr);
    pincel.Linhas(QRectF(dentro.left(), dentro.top(), dentro.width(), alturaDescr),
                  Quebrar(descr, etiqueta.descr, dentro.width(), 2), descr);

    const QFont pequena = Fonte(6);
    double y = dentro.top() + alturaDescr;
    pincel.Texto(QRectF(dentro.left(), y, dentro.width(), AlturaLinha(pequena)),
                 QStringLiteral("Cód. %1").arg(etiqueta.prodCod), pequena);
    y += AlturaLinha(pequena) + 0.5;

    // The bars take a little over half the width; the price the rest, as large as it fits.
    const double larguraBarras = dentro.width() * 0.56;
    DesenharBarras(pincel, QRectF(dentro.left(), y, larguraBarras, dentro.bottom() - y), etiqueta);
    if (!etiqueta.preco)
        return;
    const QRectF preco(dentro.left() + larguraBarras + 1.5, y, dentro.right() - dentro.left() - larguraBarras - 1.5,
                       dentro.bottom() - y);
    pincel.Texto(QRectF(preco.left(), preco.top(), preco.width(), AlturaLinha(pequena)), QStringLiteral("R$"), Fonte(7));
    pincel.Texto(preco.adjusted(0, AlturaLinha(pequena), 0, 0), FormatFloat(QStringLiteral("#,###,##0.00"), *etiqueta.preco),
                 Fonte(20, true), Qt::AlignRight | Qt::AlignVCenter);
}

bool Falha(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

} // namespace

QString Ean13(const QString &gtin)
{
    QString codigo = gtin.trimmed();
    if (codigo.size() == 14 && codigo.startsWith(QLatin1Char('0')))
        codigo.remove(0, 1);
    else if (codigo.size() == 12)
        codigo.prepend(QLatin1Char('0'));
    if (codigo.size() != 13 || TCodigoBarras::Ean13Modulos(codigo).empty())
        return {};
    return codigo;
}

int Quantas(double qtd, bool porUnidade)
{
    const double inteira = std::round(qtd);
    if (!porUnidade || inteira < 1 || std::abs(qtd - inteira) >= 0.0005)
        return 1;
    return int(std::min(inteira, double(MaxPorProduto)));
}

QList<TEtiqueta> Montar(const QList<TEtiquetaItem> &itens, bool porUnidade)
{
    QList<TEtiquetaItem> produtos;
    QHash<int, qsizetype> posicao;
    for (const TEtiquetaItem &item : itens) {
        const auto achado = posicao.constFind(item.prodCod);
        if (achado == posicao.cend()) {
            posicao.insert(item.prodCod, produtos.size());
            produtos << item;
        } else {
            produtos[*achado].qtd += item.qtd;
        }
    }
    QList<TEtiqueta> etiquetas;
    for (const TEtiquetaItem &p : produtos) {
        TEtiqueta e{.prodCod = p.prodCod, .descr = p.descr, .codigoBarras = Ean13(p.gtin), .ean13 = true, .preco = p.preco};
        for (qsizetype i = 0; i < p.barras.size() && e.codigoBarras.isEmpty(); ++i)
            e.codigoBarras = Ean13(p.barras[i]);
        if (e.codigoBarras.isEmpty()) {
            e.codigoBarras = QString::number(p.prodCod);
            e.ean13 = false;
        }
        for (int n = Quantas(p.qtd, porUnidade); n > 0; --n)
            etiquetas << e;
    }
    return etiquetas;
}

int Paginas(int etiquetas, TFormatoEtiquetas formato)
{
    const int porPagina = PorPagina(formato);
    return (etiquetas + porPagina - 1) / porPagina;
}

QString Resumo(int etiquetas, TFormatoEtiquetas formato)
{
    const int paginas = Paginas(etiquetas, formato);
    return QStringLiteral("%1 %2 em %3 %4")
        .arg(etiquetas)
        .arg(etiquetas == 1 ? QStringLiteral("etiqueta") : QStringLiteral("etiquetas"))
        .arg(paginas)
        .arg(paginas == 1 ? QStringLiteral("página") : QStringLiteral("páginas"));
}

QPageLayout Pagina(TFormatoEtiquetas formato)
{
    if (formato == TFormatoEtiquetas::FolhaA4)
        return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
    const QPageSize etiqueta(QSizeF(Largura, Altura), QPageSize::Millimeter, QStringLiteral("Etiqueta 70 x 29,7 mm"),
                             QPageSize::ExactMatch);
    return QPageLayout(etiqueta, QPageLayout::Portrait, QMarginsF());
}

bool Desenhar(const QList<TEtiqueta> &etiquetas, TFormatoEtiquetas formato, QPagedPaintDevice &dispositivo,
              QString *erro)
{
    QPainter painter;
    if (!ComecarEmMilimetros(painter, dispositivo, Pagina(formato)))
        return Falha(erro, QStringLiteral("Não foi possível iniciar o desenho das etiquetas no dispositivo de impressão"));

    TPincel pincel(painter);
    const int porPagina = PorPagina(formato);
    for (qsizetype i = 0; i < etiquetas.size(); ++i) {
        const int naPagina = int(i % porPagina);
        if (i > 0 && naPagina == 0 && !dispositivo.newPage()) {
            painter.end();
            return Falha(erro, QStringLiteral("Não foi possível abrir a página %1 das etiquetas no dispositivo de impressão")
                                   .arg(i / porPagina + 1));
        }
        const int coluna = formato == TFormatoEtiquetas::FolhaA4 ? naPagina % Colunas : 0;
        const int linha = formato == TFormatoEtiquetas::FolhaA4 ? naPagina / Colunas : 0;
        DesenharEtiqueta(pincel, QRectF(coluna * Largura, linha * Altura, Largura, Altura), etiquetas[i]);
    }
    if (!painter.end())
        return Falha(erro, QStringLiteral("Não foi possível concluir o desenho das etiquetas no dispositivo de impressão"));
    return true;
}

bool GravarPdf(const QList<TEtiqueta> &etiquetas, TFormatoEtiquetas formato, const QString &arquivo, QString *erro)
{
    return ::GravarPdf(arquivo, QStringLiteral("Etiquetas"),
                       [&](QPagedPaintDevice &dispositivo, QString *motivo) {
                           return Desenhar(etiquetas, formato, dispositivo, motivo);
                       },
                       erro);
}

std::optional<QList<TEtiquetaItem>> LerItens(TConexaoSQL &conexao, const TChaveNota &nota)
{
    auto itens = TEtiquetas_DBI::LerItens(conexao, nota);
    if (!itens) {
        MensagemErro(QStringLiteral("Não foi possível ler os itens da nota %1 para as etiquetas.\n%2")
                         .arg(nota.DocStr(), conexao.UltimoErro()));
    } else if (itens->isEmpty()) {
        MensagemProib(QStringLiteral("Não há itens na nota"));
        itens.reset();
    }
    return itens;
}

} // namespace TEtiquetas
