#include "TDanfe_Partes.h"

#include "Valores.h"

#include <cmath>

namespace TDanfePartes {

using namespace TDanfePincel;

QString Dinheiro(const Money &valor) { return FormatFloat(QStringLiteral("#,###,###,##0.00"), valor); }

QString Decimal(double valor, int casas)
{
    return FormatFloat(QStringLiteral("#,###,###,##0.") + QString(casas, QLatin1Char('0')), valor);
}

namespace {

// The text laid over a mask of '#', when it has exactly as many characters as the mask holds.
QString Mascara(const QString &texto, const QString &mascara)
{
    if (texto.size() != mascara.count(QLatin1Char('#')))
        return texto;
    QString r;
    int i = 0;
    for (const QChar m : mascara)
        r += m == QLatin1Char('#') ? texto[i++] : m;
    return r;
}

} // namespace

QString Documento(const QString &cnpj, const QString &cpf)
{
    if (!cnpj.isEmpty())
        return Mascara(cnpj, QStringLiteral("##.###.###/####-##"));
    return Mascara(cpf, QStringLiteral("###.###.###-##"));
}

QString Cep(const QString &cep) { return Mascara(cep, QStringLiteral("#####-###")); }

QString Fone(const QString &fone)
{
    if (fone.size() == 10)
        return Mascara(fone, QStringLiteral("(##) ####-####"));
    return Mascara(fone, QStringLiteral("(##) #####-####"));
}

QString ChaveEmGrupos(const QString &chave)
{
    QStringList grupos;
    for (int i = 0; i < chave.size(); i += 4)
        grupos << chave.mid(i, 4);
    return grupos.join(QLatin1Char(' '));
}

QString NumeroNF(qint64 numero)
{
    return Mascara(QString::number(numero).rightJustified(9, QLatin1Char('0')), QStringLiteral("###.###.###"));
}

QString Serie(int serie) { return QString::number(serie).rightJustified(3, QLatin1Char('0')); }
QString Data(const QDateTime &dh) { return FormatDateTime(QStringLiteral("dd/mm/yyyy"), dh); }
QString Hora(const QDateTime &dh) { return FormatDateTime(QStringLiteral("hh:nn:ss"), dh); }

QString TextoAdicionais(const TnfeProc &nfe)
{
    QStringList partes;
    if (nfe.ide.tpAmb == 2)
        partes << QStringLiteral("NF-e emitida em ambiente de homologação - SEM VALOR FISCAL");
    if (!nfe.prot.presente)
        partes << QStringLiteral("DANFE sem protocolo de autorização");
    if (!nfe.infAdFisco.trimmed().isEmpty())
        partes << QStringLiteral("Inf. Fisco: ") + nfe.infAdFisco.trimmed();
    if (!nfe.infCpl.trimmed().isEmpty())
        partes << QStringLiteral("Inf. Contribuinte: ") + nfe.infCpl.trimmed();
    return partes.join(QLatin1Char('\n'));
}

TPlano Planejar(const TnfeProc &nfe)
{
    TPlano plano;
    const int n = nfe.itens.Count();
    plano.itens.reserve(std::size_t(n));
    for (int i = 0; i < n; ++i)
        plano.itens.push_back(MedirItem(nfe.itens.GetItem(i)));

    // The first page's box takes whole lines; the rest is laid out again as wide as the page.
    const int cabemNaPrimeira = LinhasAdicCabem(AlturaAdicionais - AlturaTituloBloco);
    QString resto;
    bool cortou = false;
    for (const QString &paragrafo : TextoAdicionais(nfe).split(QLatin1Char('\n'))) {
        if (cortou) {
            resto += QLatin1Char('\n') + paragrafo;
            continue;
        }
        const QStringList linhas = Quebrar(FonteAdicionais(), paragrafo, LarguraInfCompl - 1.6);
        const qsizetype k = std::min(linhas.size(), cabemNaPrimeira - plano.adicionais.size());
        plano.adicionais += linhas.mid(0, k);
        if (k < linhas.size()) {
            resto = linhas.mid(k).join(QLatin1Char(' '));
            cortou = true;
        }
    }
    plano.continuacao = Quebrar(FonteAdicionais(), resto, Largura - 1.6);

    bool primeira = true;
    double y = TopoItens(true);
    plano.paginas.push_back({});
    auto novaPagina = [&](int item) {
        plano.paginas.back().fimItens = FimItens(primeira);
        primeira = false;
        y = TopoItens(false);
        plano.paginas.push_back({item, item, 0, 0, 0, 0});
    };
    for (int i = 0; i < n; ++i) {
        if (y + plano.itens[std::size_t(i)].altura > FimItens(primeira))
            novaPagina(i);
        y += plano.itens[std::size_t(i)].altura;
        plano.paginas.back().itemFim = i + 1;
    }
    plano.paginas.back().fimItens = FimItens(primeira);

    // What the first page's box cannot hold continues after the last item, on new pages if need be.
    int linha = 0;
    bool naAtual = plano.paginas.size() > 1;   // never on the first page, whose box is full
    double topo = y + 1;
    while (linha < plano.continuacao.size()) {
        int cabem = naAtual ? LinhasAdicCabem(FimItens(false) - topo - AlturaTituloBloco) : 0;
        if (cabem < 1) {
            novaPagina(n);
            topo = TopoItens(false) - AlturaTituloItens;
            cabem = LinhasAdicCabem(FimItens(false) - topo - AlturaTituloBloco);
        } else {
            plano.paginas.back().fimItens = y;
        }
        TPagina &pagina = plano.paginas.back();
        pagina.adicIni = linha;
        pagina.adicFim = linha = std::min<int>(int(plano.continuacao.size()), linha + cabem);
        pagina.topoAdic = topo + AlturaTituloBloco;
        naAtual = false;
    }
    return plano;
}

} // namespace TDanfePartes
