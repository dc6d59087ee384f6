#pragma once

#include "TDanfe_Pincel.h"
#include "TnfeProc.h"

#include <QStringList>

#include <vector>

// The parts of the DANFE and the plan of its pages, shared by its drawing files.
namespace TDanfePartes {

using TDanfePincel::TPincel;

// Heights of the blocks, in millimetres, and where the items go on the first and later pages.
using TDanfePincel::AlturaCampo, TDanfePincel::AlturaTituloBloco;
constexpr double AlturaCanhoto = 16, EspacoCorte = 4, AlturaIdentificacao = 34;
constexpr double AlturaCabecalho = AlturaIdentificacao + 2 * AlturaCampo;
constexpr double AlturaDestinatario = AlturaTituloBloco + 3 * AlturaCampo;
constexpr double AlturaImposto = AlturaTituloBloco + 2 * AlturaCampo;
constexpr double AlturaTransporte = AlturaTituloBloco + 3 * AlturaCampo;
constexpr double AlturaTitulosColunas = 6, AlturaTituloItens = AlturaTituloBloco + AlturaTitulosColunas;
constexpr double AlturaAdicionais = 31.5, LarguraInfCompl = 132;
constexpr double TopoCabecalho(bool primeira)
{
    return TDanfePincel::Margem + (primeira ? AlturaCanhoto + EspacoCorte : 0);
}
constexpr double TopoItens(bool primeira)
{
    return TopoCabecalho(primeira) + AlturaCabecalho
        + (primeira ? AlturaDestinatario + AlturaImposto + AlturaTransporte : 0) + AlturaTituloItens;
}
constexpr double FimItens(bool primeira)
{
    return TDanfePincel::AlturaPagina - TDanfePincel::Margem - (primeira ? AlturaAdicionais + 1 : 0);
}

struct TItemLinhas
{
    QStringList codigo, descricao;   // the description's lines, its additional information's after
    double altura = 0;
};

struct TPagina
{
    int itemIni = 0, itemFim = 0;    // items [itemIni, itemFim)
    double fimItens = 0;             // where the items' frame ends
    int adicIni = 0, adicFim = 0;    // lines of the continuation on this page
    double topoAdic = 0;
};

struct TPlano
{
    std::vector<TItemLinhas> itens;
    QStringList adicionais;          // the additional data in the first page's box
    QStringList continuacao;         // and what did not fit there, as wide as the page
    std::vector<TPagina> paginas;
};

TPlano Planejar(const TnfeProc &nfe);

// Texts as the DANFE shows them.
QString Dinheiro(const Money &valor);
QString Decimal(double valor, int casas);
QString Documento(const QString &cnpj, const QString &cpf);
QString Cep(const QString &cep);
QString Fone(const QString &fone);
QString ChaveEmGrupos(const QString &chave);
QString NumeroNF(qint64 numero);
QString Serie(int serie);
QString Data(const QDateTime &dh);
QString Hora(const QDateTime &dh);
QString TextoAdicionais(const TnfeProc &nfe);

// The blocks of a page, from the top.
void Canhoto(TPincel &p, const TnfeProc &nfe);
void Cabecalho(TPincel &p, const TnfeProc &nfe, bool primeira, int folha, int folhas);
void Destinatario(TPincel &p, const TnfeProc &nfe, double topo);
void Imposto(TPincel &p, const TnfeProc &nfe, double topo);
void Transporte(TPincel &p, const TnfeProc &nfe, double topo);
void Adicionais(TPincel &p, const TPlano &plano);
void AdicionaisContinuacao(TPincel &p, const TPlano &plano, const TPagina &pagina);

// The items' table.
TItemLinhas MedirItem(const TItem &item);
QFont FonteAdicionais();
double AlturaAdicContinuacao(int linhas);
int LinhasAdicCabem(double altura);
void Itens(TPincel &p, const TnfeProc &nfe, const TPlano &plano, const TPagina &pagina, bool primeira);

} // namespace TDanfePartes
