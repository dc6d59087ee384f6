#include "TCompraExpImp_DBI.h"

#include "NumeroBR.h"
#include "Valores.h"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>

namespace TCompraExpImp_DBI {

namespace {

using enum TLeitorArq;

constexpr TColunaArq colunasCompra[] = {
    {"EMPR_COD", Inteiro}, {"ESTACAO_COD", Inteiro}, {"COMPRA_COD", Inteiro}, {"TIPO_COD", Texto},
    {"CANCELADO", Texto}, {"BAIXADO", Texto}, {"DT_DOC", Data}, {"NDOC", Inteiro}, {"FORNEC_COD", Inteiro},
    {"TOT_PRODS", Decimal}, {"IPI", Decimal}, {"FRETE", Decimal}, {"OUTRAS", Decimal}, {"ICMS", Decimal},
    {"DESCONTO", Decimal}, {"TOT", Decimal}, {"SERIE", Texto}, {"ARQ_XML", Texto}, {"NAT_OP_STR", Texto},
    {"UF_IBGE_COD", Texto}, {"MUN_IBGE_COD", Texto}, {"IND_PAG_AVISTA", Inteiro}, {"MODELO_COD", Texto},
    {"TIPO_NF_COD", Inteiro}, {"NFE_DV", Inteiro}, {"CFOP", Texto}, {"CFOP_ORI", Texto}, {"DTH_CRI", DataHora},
    {"BC", Decimal}, {"BCST", Decimal}, {"ST", Decimal}, {"SEG", Decimal}, {"II", Decimal}, {"PIS", Decimal},
    {"COFINS", Decimal},
};
static_assert(std::size(colunasCompra) == 35);

constexpr TColunaArq colunasEstMov[] = {
    {"EMPR_COD", Inteiro}, {"ESTACAO_COD", Inteiro}, {"EST_MOV_COD", Inteiro}, {"TIPO", Texto},
    {"PROD_COD", Inteiro}, {"PROD_TIPO_COD", Texto}, {"QTD", Decimal}, {"CUSTO_TOT", Decimal},
    {"CUSTO", Decimal}, {"PRECO_UNIT", Decimal}, {"DESCONTO", Decimal}, {"CANCELADO", Texto},
    {"DTH_CRI", DataHora}, {"TIPO_JAN", Inteiro}, {"QTD_PECAS", Decimal}, {"ALTURA", Decimal},
    {"LARGURA", Decimal}, {"COMPRIMENTO", Decimal}, {"QTD_VISIVEL", Texto}, {"ALTURA_VISIVEL", Texto},
    {"LARGURA_VISIVEL", Texto}, {"COMPRIMENTO_VISIVEL", Texto}, {"TRAT_ICMS", Inteiro},
    {"ORIGEM_MERC", Inteiro}, {"ICMS_BC_MOD", Inteiro}, {"ICMS_ST_BC_MOD", Inteiro},
    {"ICMS_ST_PERC_AD", Decimal}, {"ICMS_ST_PERC_RED", Decimal}, {"TRIB_ST_PERC", Decimal},
    {"ICMS_BC_PERC_RED", Decimal}, {"ICMS_BC_PERC_OP_PROP", Decimal}, {"ICMS_BC_VAL", Decimal},
    {"ICMS_VAL", Decimal}, {"ICMS_ST_BC_VAL", Decimal}, {"ICMS_ST_VAL", Decimal},
    {"ICMS_ST_VAL_RET", Decimal}, {"ICMS_ST_BC_VAL_DEST", Decimal}, {"ICMS_ST_VAL_DEST", Decimal},
    {"ICMS_SN_CRED_VAL", Decimal}, {"TRIB_COD", Inteiro}, {"TRIB_PERC", Decimal},
    {"ICMS_MOT_DESO", Inteiro}, {"ICMS_PARTILHA", Texto}, {"ICMS_CSOSN", Inteiro},
    {"ICMS_SN_CRED_PERC", Decimal}, {"ICMS_ST_UF", Texto}, {"PARTICIPA", Texto},
    {"PRECO_UNIT_ORIG", Decimal}, {"BENEF_TEM", Texto}, {"BENEF_PERC", Decimal},
    {"PRECO_UNIT_DIF_BENEF", Decimal}, {"DTH_ATU", DataHora}, {"IMPORT_DTH", DataHora},
    {"IMPORT_STATUS", Inteiro}, {"PRECO_ATUAL", Decimal}, {"PRECO_PROMO", Decimal}, {"CFOP", Texto},
};
static_assert(std::size(colunasEstMov) == 57);

const QString Quebra = QStringLiteral("\r\n");
const QString Separador = QStringLiteral("\r\n, ");

QString nomes(std::span<const TColunaArq> colunas, const QString &prefixo)
{
    QStringList r;
    r.reserve(qsizetype(colunas.size()));
    for (const TColunaArq &c : colunas)
        r << prefixo + QLatin1String(c.nome);
    return r.join(Separador);
}

// "1/2/2026", "01/02/2026 10:30" and "01/02/2026 10:30:05"; seconds only when asked for.
std::optional<QDateTime> dataHora(const QString &texto, bool comHora)
{
    static const QRegularExpression forma(
        QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})(?: (\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    const QRegularExpressionMatch m = forma.match(texto);
    if (!m.hasMatch() || (!comHora && m.hasCaptured(4)))
        return std::nullopt;
    const QDate data(m.captured(3).toInt(), m.captured(2).toInt(), m.captured(1).toInt());
    const QTime hora = m.hasCaptured(4) ? QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt())
                                        : QTime(0, 0);
    if (!data.isValid() || !hora.isValid())
        return std::nullopt;
    return QDateTime(data, hora);
}

// `inicio`: the statement up to its values, made once per table.
QString inserir(const QString &inicio, QStringList literais, qint64 chave)
{
    literais[ColunaChave] = QString::number(chave);
    return inicio + literais.join(Separador) + Quebra + QLatin1String(");");
}

QString inicioInsert(const QString &tabela, std::span<const TColunaArq> colunas)
{
    return QLatin1String("insert into ") + tabela + Quebra + nomes(colunas, QString()) + Quebra
           + QLatin1String(") values (") + Quebra;
}

} // namespace

std::span<const TColunaArq> ColunasCompra() { return colunasCompra; }
std::span<const TColunaArq> ColunasEstMov() { return colunasEstMov; }

std::optional<QString> Literal(TLeitorArq leitor, QStringView texto)
{
    // Most values are plain digits ("0", "3", "1102"): already their own literal.
    const bool digitos = !texto.isEmpty() && texto.size() <= 9 && (texto.size() == 1 || texto.front() != u'0')
                         && std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    switch (leitor) {
    case Inteiro: {
        if (texto.isEmpty())
            return QStringLiteral("0");
        if (digitos)
            return texto.toString();
        bool ok = false;
        const int n = texto.toInt(&ok);
        // toInt takes blanks and a '+' only; digits with an optional sign are what is meant.
        if (!ok || texto.front().isSpace() || texto.back().isSpace())
            return std::nullopt;
        return QString::number(n);
    }
    case Decimal:
        if (texto.isEmpty())
            return QStringLiteral("0");
        return digitos ? std::optional(texto.toString()) : NumeroBRParaPonto(texto.toString());
    case Texto:
        return QuotedStr(texto.toString());
    case Data:
    case DataHora: {
        const auto valor = dataHora(texto.toString(), leitor == DataHora);
        if (!valor)
            return std::nullopt;
        return leitor == Data ? DataSQLFirebird(valor->date()) : DataHoraSQLFirebird(*valor);
    }
    }
    return std::nullopt;
}

QString SqlNotas()
{
    return QLatin1String("select ") + nomes(colunasCompra, QString()) + Quebra + QLatin1String("from compra;");
}

QString SqlMovsDaNota(int emprCod, int estacaoCod, int compraCod)
{
    static const QString colunas = nomes(colunasEstMov, QStringLiteral("est_mov."));
    return QLatin1String("select ") + colunas + Quebra
           + QLatin1String("from compra_est_mov\r\n"
                           "join est_mov on est_mov.empr_cod=compra_est_mov.est_mov_empr_cod\r\n"
                           "and est_mov.estacao_cod=compra_est_mov.est_mov_estacao_cod\r\n"
                           "and est_mov.est_mov_cod=compra_est_mov.est_mov_cod\r\n"
                           "where compra_est_mov.EMPR_COD=")
           + QString::number(emprCod) + QLatin1String("\r\nand compra_est_mov.ESTACAO_COD=") + QString::number(estacaoCod)
           + QLatin1String("\r\nand compra_est_mov.COMPRA_COD=") + QString::number(compraCod);
}

QString SqlContarLigacoes() { return QStringLiteral("select count(*) from compra_est_mov"); }

QString SqlMovsLigados()
{
    return QStringLiteral("select est_mov.EMPR_COD, est_mov.ESTACAO_COD, est_mov.EST_MOV_COD\r\n"
                          "from compra_est_mov\r\n"
                          "join est_mov on est_mov.empr_cod=compra_est_mov.est_mov_empr_cod\r\n"
                          "and est_mov.estacao_cod=compra_est_mov.est_mov_estacao_cod\r\n"
                          "and est_mov.est_mov_cod=compra_est_mov.est_mov_cod");
}

QString SqlExcluirMov(int emprCod, int estacaoCod, int estMovCod)
{
    return QStringLiteral("delete from est_mov where empr_cod=%1 and estacao_cod=%2 and est_mov_cod=%3")
        .arg(emprCod).arg(estacaoCod).arg(estMovCod);
}

QStringList SqlExcluirNotas()
{
    return {QStringLiteral("delete from compra;"), QStringLiteral("delete from compra_est_mov;"),
            QStringLiteral("set generator compra_g to 0;")};
}

QString SqlInserirCompra(QStringList literais, qint64 chave)
{
    static const QString inicio = inicioInsert(QStringLiteral("compra ("), colunasCompra);
    return inserir(inicio, std::move(literais), chave);
}

QString SqlInserirEstMov(QStringList literais, qint64 chave)
{
    static const QString inicio = inicioInsert(QStringLiteral("est_mov("), colunasEstMov);
    return inserir(inicio, std::move(literais), chave);
}

QString SqlInserirLigacao(int notaEmprCod, qint64 compraCod, int movEmprCod, qint64 estMovCod)
{
    return QLatin1String("insert into Compra_est_mov (") + Quebra
           + QLatin1String("EMPR_COD\r\n, ESTACAO_COD\r\n, COMPRA_COD\r\n, EST_MOV_EMPR_COD\r\n, EST_MOV_ESTACAO_COD\r\n, EST_MOV_COD")
           + Quebra + QLatin1String(") values (") + Quebra
           + QStringList{QString::number(notaEmprCod), QStringLiteral("10"), QString::number(compraCod),
                         QString::number(movEmprCod), QStringLiteral("10"), QString::number(estMovCod)}
                 .join(Separador)
           + Quebra + QLatin1String(");");
}

} // namespace TCompraExpImp_DBI
