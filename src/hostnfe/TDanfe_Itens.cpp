#include "TDanfe_Partes.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace TDanfePartes {

using namespace TDanfePincel;

namespace {

struct TColuna
{
    const char *titulo;
    double largura;
    Qt::Alignment alinhamento;
};

constexpr Qt::Alignment Esq = Qt::AlignLeft, Centro = Qt::AlignHCenter, Dir = Qt::AlignRight;
// The widths add up to the page's printable width.
constexpr std::array<TColuna, 14> Colunas = {{{"CÓDIGO PRODUTO", 15, Esq},
                                              {"DESCRIÇÃO DO PRODUTO / SERVIÇO", 51, Esq},
                                              {"NCM/SH", 12, Centro},
                                              {"O/CST", 9, Centro},
                                              {"CFOP", 7.5, Centro},
                                              {"UN", 7, Centro},
                                              {"QUANT.", 13, Dir},
                                              {"VALOR UNIT.", 14, Dir},
                                              {"VALOR TOTAL", 14, Dir},
                                              {"B.CÁLC. ICMS", 14, Dir},
                                              {"VALOR ICMS", 12.5, Dir},
                                              {"VALOR IPI", 11, Dir},
                                              {"ALÍQ. ICMS", 9, Dir},
                                              {"ALÍQ. IPI", 9, Dir}}};
constexpr double Folga = 0.5, Recuo = 0.6;

QFont FonteItem() { return Fonte(6, false, true); }

// The most lines one item may take: it must fit on a later page on its own.
int MaximoLinhas()
{
    return int((FimItens(false) - TopoItens(false) - 2 * Folga) / AlturaLinha(FonteItem()));
}

QStringList Valores(const TItem &it)
{
    const TNFeICMS &icms = it.ICMS;
    return {QString(), QString(), it.NCM, QString::number(icms.orig) + (icms.CSOSN.isEmpty() ? icms.CST : icms.CSOSN),
            it.CFOP, it.uCom, Decimal(it.qCom, 4), Decimal(it.vUnCom, 4), Dinheiro(it.vProd), Dinheiro(icms.vBC),
            Dinheiro(icms.vICMS), Dinheiro(it.IPI.vIPI), Decimal(icms.pICMS, 2), Decimal(it.IPI.pIPI, 2)};
}

} // namespace

TItemLinhas MedirItem(const TItem &item)
{
    const QFont f = FonteItem();
    const int maximo = MaximoLinhas();
    TItemLinhas l;
    l.codigo = Quebrar(f, item.cProd, Colunas[0].largura - 2 * Recuo, maximo);
    QString descricao = item.xProd;
    if (!item.infAdProd.trimmed().isEmpty())
        descricao += QLatin1Char('\n') + item.infAdProd.trimmed();
    l.descricao = Quebrar(f, descricao, Colunas[1].largura - 2 * Recuo, maximo);
    const auto linhas = std::max<qsizetype>({1, l.codigo.size(), l.descricao.size()});
    l.altura = double(linhas) * AlturaLinha(f) + 2 * Folga;
    return l;
}

void Itens(TPincel &p, const TnfeProc &nfe, const TPlano &plano, const TPagina &pagina, bool primeira)
{
    const double topo = TopoItens(primeira) - AlturaTitulosColunas;
    if (pagina.itemFim == pagina.itemIni && !primeira)
        return;
    p.TituloBloco(topo, QStringLiteral("DADOS DO PRODUTO / SERVIÇO"));
    p.Retangulo(QRectF(Esquerda, topo, Largura, pagina.fimItens - topo));
    p.Linha(Esquerda, topo + AlturaTitulosColunas, Direita, topo + AlturaTitulosColunas, 0.2);

    const bool simples = nfe.emitente.CRT == 1 || nfe.emitente.CRT == 4;
    const QFont ft = FonteTitulo();
    double x = Esquerda;
    for (std::size_t c = 0; c < Colunas.size(); ++c) {
        const double w = Colunas[c].largura;
        if (c > 0)
            p.Linha(x, topo, x, pagina.fimItens);
        QString titulo = QString::fromUtf8(Colunas[c].titulo);
        if (c == 3 && simples)
            titulo = QStringLiteral("O/CSOSN");
        const QStringList linhas = Quebrar(ft, titulo, w - 2 * Recuo, 2);
        const double h = double(linhas.size()) * AlturaLinha(ft);
        p.Linhas(QRectF(x + Recuo, topo + (AlturaTitulosColunas - h) / 2, w - 2 * Recuo, h + 0.01), linhas, ft,
                 Qt::AlignHCenter);
        x += w;
    }

    const QFont f = FonteItem();
    const double lh = AlturaLinha(f);
    double y = topo + AlturaTitulosColunas;
    for (int i = pagina.itemIni; i < pagina.itemFim; ++i) {
        const TItemLinhas &l = plano.itens[std::size_t(i)];
        const QStringList valores = Valores(nfe.itens.GetItem(i));
        x = Esquerda;
        for (std::size_t c = 0; c < Colunas.size(); ++c) {
            const QRectF celula(x + Recuo, y + Folga, Colunas[c].largura - 2 * Recuo, l.altura - 2 * Folga);
            if (c < 2)
                p.Linhas(celula, c == 0 ? l.codigo : l.descricao, f);
            else
                p.Texto(QRectF(celula.left(), celula.top(), celula.width(), lh), valores[qsizetype(c)], f,
                        Colunas[c].alinhamento);
            x += Colunas[c].largura;
        }
        y += l.altura;
        if (i + 1 < pagina.itemFim)
            p.Linha(Esquerda, y, Direita, y, 0.05, true);
    }
}

} // namespace TDanfePartes
