#include "TDanfe_Partes.h"

#include <cmath>
#include <initializer_list>

namespace TDanfePartes {

using namespace TDanfePincel;

namespace {

struct TCampo
{
    const char *titulo;
    QString valor;
    double largura;                  // 0: what is left of the row
    Qt::Alignment alinhamento = Qt::AlignLeft;
};

void Fileira(TPincel &p, double y, std::initializer_list<TCampo> campos)
{
    double usada = 0;
    for (const TCampo &c : campos)
        usada += c.largura;
    double x = Esquerda;
    for (const TCampo &c : campos) {
        const double w = c.largura > 0 ? c.largura : Largura - usada;
        p.Campo(QRectF(x, y, w, AlturaCampo), QString::fromUtf8(c.titulo), c.valor, c.alinhamento);
        x += w;
    }
}

constexpr Qt::Alignment Dir = Qt::AlignRight, Centro = Qt::AlignHCenter;

QString ModalidadeFrete(int modFrete)
{
    switch (modFrete) {
    case 0: return QStringLiteral("0-Por conta do Remetente");
    case 1: return QStringLiteral("1-Por conta do Destinatário");
    case 2: return QStringLiteral("2-Por conta de Terceiros");
    case 3: return QStringLiteral("3-Próprio por conta do Remetente");
    case 4: return QStringLiteral("4-Próprio por conta do Destinatário");
    case 9: return QStringLiteral("9-Sem Ocorrência de Transporte");
    default: return QString::number(modFrete);
    }
}

QString Peso(double valor) { return valor == 0 ? QString() : Decimal(valor, 3); }

} // namespace

void Destinatario(TPincel &p, const TnfeProc &nfe, double topo)
{
    const TPess_Dest &d = nfe.destinatario;
    const TNFeEndereco &e = d.ender;
    const double y = topo + AlturaTituloBloco;
    p.TituloBloco(y, QStringLiteral("DESTINATÁRIO / REMETENTE"));
    QString endereco = e.xLgr + (e.nro.isEmpty() ? QString() : QStringLiteral(", ") + e.nro);
    if (!e.xCpl.isEmpty())
        endereco += QStringLiteral(" - ") + e.xCpl;
    Fileira(p, y, {{"NOME / RAZÃO SOCIAL", d.xNome, 0},
                   {"CNPJ / CPF", Documento(d.CNPJ, d.CPF.isEmpty() ? d.idEstrangeiro : d.CPF), 45, Centro},
                   {"DATA DA EMISSÃO", Data(nfe.ide.dhEmi), 35, Centro}});
    Fileira(p, y + AlturaCampo, {{"ENDEREÇO", endereco, 0}, {"BAIRRO / DISTRITO", e.xBairro, 45},
                                 {"CEP", Cep(e.CEP), 25, Centro},
                                 {"DATA DA SAÍDA/ENTRADA", Data(nfe.ide.dhSaiEnt), 35, Centro}});
    Fileira(p, y + 2 * AlturaCampo, {{"MUNICÍPIO", e.xMun, 0}, {"FONE / FAX", Fone(e.fone), 35, Centro},
                                     {"UF", e.UF, 13, Centro}, {"INSCRIÇÃO ESTADUAL", d.IE, 45, Centro},
                                     {"HORA DA SAÍDA/ENTRADA", Hora(nfe.ide.dhSaiEnt), 35, Centro}});
}

void Imposto(TPincel &p, const TnfeProc &nfe, double topo)
{
    const TNFeICMSTot &t = nfe.ICMSTot;
    const double y = topo + AlturaTituloBloco, w = Largura / 8;
    p.TituloBloco(y, QStringLiteral("CÁLCULO DO IMPOSTO"));
    Fileira(p, y, {{"BASE DE CÁLC. DO ICMS", Dinheiro(t.vBC), w, Dir}, {"VALOR DO ICMS", Dinheiro(t.vICMS), w, Dir},
                   {"BASE DE CÁLC. ICMS S.T.", Dinheiro(t.vBCST), w, Dir}, {"VALOR DO ICMS SUBST.", Dinheiro(t.vST), w, Dir},
                   {"VALOR DO FCP", Dinheiro(t.vFCP), w, Dir}, {"VALOR DO FCP S.T.", Dinheiro(t.vFCPST), w, Dir},
                   {"V. IMP. IMPORTAÇÃO", Dinheiro(t.vII), w, Dir}, {"V. TOTAL PRODUTOS", Dinheiro(t.vProd), 0, Dir}});
    Fileira(p, y + AlturaCampo,
            {{"VALOR DO FRETE", Dinheiro(t.vFrete), w, Dir}, {"VALOR DO SEGURO", Dinheiro(t.vSeg), w, Dir},
             {"DESCONTO", Dinheiro(t.vDesc), w, Dir}, {"OUTRAS DESPESAS", Dinheiro(t.vOutro), w, Dir},
             {"VALOR TOTAL DO IPI", Dinheiro(t.vIPI), w, Dir}, {"V. ICMS UF DEST.", Dinheiro(t.vICMSUFDest), w, Dir},
             {"V. APROX. TRIBUTOS", Dinheiro(t.vTotTrib), w, Dir}, {"V. TOTAL DA NOTA", Dinheiro(t.vNF), 0, Dir}});
}

void Transporte(TPincel &p, const TnfeProc &nfe, double topo)
{
    const TNFeTransp &t = nfe.transp;
    const double y = topo + AlturaTituloBloco;
    p.TituloBloco(y, QStringLiteral("TRANSPORTADOR / VOLUMES TRANSPORTADOS"));
    Fileira(p, y, {{"NOME / RAZÃO SOCIAL", t.xNome, 0}, {"FRETE POR CONTA", ModalidadeFrete(t.modFrete), 40},
                   {"CÓDIGO ANTT", QString(), 20, Centro}, {"PLACA DO VEÍCULO", t.placa, 22, Centro},
                   {"UF", t.UFVeic, 10, Centro}, {"CNPJ / CPF", Documento(t.CNPJ, t.CPF), 44, Centro}});
    Fileira(p, y + AlturaCampo, {{"ENDEREÇO", t.xEnder, 0}, {"MUNICÍPIO", t.xMun, 58}, {"UF", t.UF, 10, Centro},
                                 {"INSCRIÇÃO ESTADUAL", t.IE, 44, Centro}});
    Fileira(p, y + 2 * AlturaCampo,
            {{"QUANTIDADE", t.qVol == 0 ? QString() : Decimal(t.qVol, 0), 24, Dir}, {"ESPÉCIE", t.esp, 36},
             {"MARCA", t.marca, 36}, {"NUMERAÇÃO", t.nVol, 0}, {"PESO BRUTO", Peso(t.pesoB), 34, Dir},
             {"PESO LÍQUIDO", Peso(t.pesoL), 34, Dir}});
}

QFont FonteAdicionais() { return Fonte(6); }

int LinhasAdicCabem(double altura)
{
    const double livre = altura - 0.8 - AlturaLinha(FonteTitulo()) - 0.6;
    return livre <= 0 ? 0 : int(std::floor(livre / AlturaLinha(FonteAdicionais()) + 1e-6));
}

double AlturaAdicContinuacao(int linhas)
{
    return 0.8 + AlturaLinha(FonteTitulo()) + linhas * AlturaLinha(FonteAdicionais()) + 0.6;
}

namespace {

void CaixaAdicional(TPincel &p, const QRectF &r, const QString &titulo, const QStringList &linhas)
{
    p.Campo(r, titulo, QString());
    const double topo = r.top() + 0.8 + AlturaLinha(FonteTitulo());
    p.Linhas(QRectF(r.left() + 0.8, topo, r.width() - 1.6, r.bottom() - topo), linhas, FonteAdicionais());
}

} // namespace

void Adicionais(TPincel &p, const TPlano &plano)
{
    const double y = AlturaPagina - Margem - AlturaAdicionais + AlturaTituloBloco;
    p.TituloBloco(y, QStringLiteral("DADOS ADICIONAIS"));
    const double h = AlturaAdicionais - AlturaTituloBloco;
    CaixaAdicional(p, QRectF(Esquerda, y, LarguraInfCompl, h), QStringLiteral("INFORMAÇÕES COMPLEMENTARES"),
                   plano.adicionais);
    p.Campo(QRectF(Esquerda + LarguraInfCompl, y, Largura - LarguraInfCompl, h), QStringLiteral("RESERVADO AO FISCO"),
            QString());
}

void AdicionaisContinuacao(TPincel &p, const TPlano &plano, const TPagina &pagina)
{
    if (pagina.adicFim <= pagina.adicIni)
        return;
    const int n = pagina.adicFim - pagina.adicIni;
    p.TituloBloco(pagina.topoAdic, QStringLiteral("DADOS ADICIONAIS (CONTINUAÇÃO)"));
    CaixaAdicional(p, QRectF(Esquerda, pagina.topoAdic, Largura, AlturaAdicContinuacao(n)),
                   QStringLiteral("INFORMAÇÕES COMPLEMENTARES"), plano.continuacao.mid(pagina.adicIni, n));
}

} // namespace TDanfePartes
