#include "UTipoDoc.h"

#include "Valores.h"

namespace TipoDoc {

namespace {

constexpr const char *RecusaEntrada = "Não pode ser enviada NFe referente a uma ENTRADA";
constexpr const char *RecusaProducao = "Não pode ser enviada NFe referente a uma NOTA DE PRODUÇÃO";

// Combo order is not code order: RETORNO DE COMODATO (41) comes before NOTA COMPLEMETAR (39).
// "NOTA COMPLEMETAR" is the text users know; it is kept as it is.
const QList<TTipoDoc> g_tabela = {
    {.indice = 0, .codigo = Entrada, .texto = "ENTRADA", .nomeCurto = "ENTRADA",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = true, .exigeNatOp = false,
     .exigeNCMItem = false, .exigeEmbQtd = true, .exigeTotProds = true, .podeEnviarNFe = false,
     .podeCartaCorrecao = false, .numeroDigitado = true, .recusaNFe = RecusaEntrada,
     .finalidadeNFe = 1, .conferirTotaisNaBaixa = true, .aceitaValorZerado = false,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Sempre},
    {.indice = 1, .codigo = Devolucao, .texto = "DEVOLUCAO", .nomeCurto = "DEVOLUCAO",
     .docTipoHost = DocTipoDevolucao, .exigeFornecedor = true, .exigeNatOp = true,
     .exigeNCMItem = true, .exigeEmbQtd = true, .exigeTotProds = false, .podeEnviarNFe = true,
     .podeCartaCorrecao = true, .numeroDigitado = false, .recusaNFe = nullptr,
     .finalidadeNFe = 4, .conferirTotaisNaBaixa = true, .aceitaValorZerado = false,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Nunca},
    {.indice = 2, .codigo = SimplesRemessa, .texto = "SIMPLES REMESSA", .nomeCurto = "SIMPLES REMESSA",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = true, .exigeNatOp = true,
     .exigeNCMItem = true, .exigeEmbQtd = true, .exigeTotProds = true, .podeEnviarNFe = true,
     .podeCartaCorrecao = true, .numeroDigitado = false, .recusaNFe = nullptr,
     .finalidadeNFe = 1, .conferirTotaisNaBaixa = true, .aceitaValorZerado = false,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Nunca},
    {.indice = 3, .codigo = Producao, .texto = "PRODUCAO", .nomeCurto = "PRODUCAO",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = true, .exigeNatOp = true,
     .exigeNCMItem = false, .exigeEmbQtd = true, .exigeTotProds = false, .podeEnviarNFe = false,
     .podeCartaCorrecao = false, .numeroDigitado = false, .recusaNFe = RecusaProducao,
     .finalidadeNFe = 1, .conferirTotaisNaBaixa = true, .aceitaValorZerado = true,
     .ajustaTotalNaBaixa = true, .custosNaBaixa = TCustosNaBaixa::ConformeConfig},
    {.indice = 4, .codigo = RetornoLocacao, .texto = "RETORNO DE LOCACAO", .nomeCurto = "RETORNO",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = true, .exigeNatOp = true,
     .exigeNCMItem = true, .exigeEmbQtd = true, .exigeTotProds = false, .podeEnviarNFe = true,
     .podeCartaCorrecao = false, .numeroDigitado = false, .recusaNFe = nullptr,
     .finalidadeNFe = 4, .conferirTotaisNaBaixa = true, .aceitaValorZerado = false,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Nunca},
    {.indice = 5, .codigo = RetornoComodato, .texto = "RETORNO DE COMODATO", .nomeCurto = "RETORNO",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = true, .exigeNatOp = true,
     .exigeNCMItem = true, .exigeEmbQtd = true, .exigeTotProds = false, .podeEnviarNFe = true,
     .podeCartaCorrecao = false, .numeroDigitado = false, .recusaNFe = nullptr,
     .finalidadeNFe = 4, .conferirTotaisNaBaixa = true, .aceitaValorZerado = false,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Nunca},
    {.indice = 6, .codigo = NotaComplementar, .texto = "NOTA COMPLEMETAR", .nomeCurto = "NOTA COMPLEMENTAR",
     .docTipoHost = DocTipoOutros, .exigeFornecedor = false, .exigeNatOp = true,
     .exigeNCMItem = true, .exigeEmbQtd = false, .exigeTotProds = true, .podeEnviarNFe = true,
     .podeCartaCorrecao = false, .numeroDigitado = false, .recusaNFe = nullptr,
     .finalidadeNFe = 2, .conferirTotaisNaBaixa = false, .aceitaValorZerado = true,
     .ajustaTotalNaBaixa = false, .custosNaBaixa = TCustosNaBaixa::Nunca},
};

} // namespace

const QList<TTipoDoc> &Tabela()
{
    return g_tabela;
}

QStringList TextosCombo()
{
    QStringList textos;
    for (const TTipoDoc &t : g_tabela)
        textos << QString::fromUtf8(t.texto);
    return textos;
}

const TTipoDoc &PorIndice(int indice)
{
    if (indice < 0 || indice >= g_tabela.size())
        return g_tabela.front();
    return g_tabela[indice];
}

int CodigoDoIndice(int indice)
{
    return PorIndice(indice).codigo;
}

const TTipoDoc *PorCodigo(int codigo)
{
    for (const TTipoDoc &t : g_tabela)
        if (t.codigo == codigo)
            return &t;
    return nullptr;
}

int IndiceDoCodigo(int codigo)
{
    const TTipoDoc *t = PorCodigo(codigo);
    return t ? t->indice : -1;
}

QChar CharDoCodigo(int codigo)
{
    return QChar(char16_t(codigo));
}

int CodigoDoChar(const QString &tipoCod)
{
    const QString t = tipoCod.trimmed();
    return t.isEmpty() ? Entrada : int(t.at(0).unicode());
}

QString SqlDoCodigo(int codigo)
{
    return QuotedStr(QString(CharDoCodigo(codigo)));
}

QString RepTipoDocToStr(int codigo)
{
    if (const TTipoDoc *t = PorCodigo(codigo))
        return QString::fromUtf8(t->texto);
    return QStringLiteral("[%1]").arg(codigo);
}

int TipoDocCharToTDocTipo(QChar c)
{
    return c == QLatin1Char('#') ? DocTipoDevolucao : DocTipoOutros;
}

} // namespace TipoDoc

QString RepBaixadoStr(bool baixado)
{
    return baixado ? QStringLiteral("SIM") : QStringLiteral("NÃO");
}

QString RepCanceladoStr(bool cancelado)
{
    return cancelado ? QStringLiteral("SIM") : QStringLiteral("NÃO");
}
