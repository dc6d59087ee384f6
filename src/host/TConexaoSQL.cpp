#include "TConexaoSQL.h"

#include "Valores.h"

#include "FirebirdPool.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QThread>

#include <atomic>
#include <stdexcept>

Q_LOGGING_CATEGORY(lcSql, "pavrel.sql", QtWarningMsg)

namespace {

using Firebird::Falha;
using Firebird::Pool;

std::atomic<int> esperaTrava = 10;
constexpr int TentativasEmConflito = 4;

QString inicioDoComando(const QString &sql, int tamanho)
{
    return sql.simplified().left(tamanho);
}

// The table a statement writes (or, for a select, reads first): the one another station holds.
QString tabelaDoComando(const QString &sql)
{
    static const QRegularExpression escrita(
        QStringLiteral("\\b(?:update\\s+or\\s+insert\\s+into|insert\\s+into|merge\\s+into|delete\\s+from|update)\\s+\"?([\\w$]+)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression leitura(QStringLiteral("\\bfrom\\s+\"?([\\w$]+)"),
                                            QRegularExpression::CaseInsensitiveOption);
    QRegularExpressionMatch m = escrita.match(sql);
    if (!m.hasMatch())
        m = leitura.match(sql);
    return m.hasMatch() ? m.captured(1).toUpper() : QString();
}

QString mensagemDaFalha(const Falha &falha, bool consulta, const QString &sql, const QString &database)
{
    if (falha.EsperaEsgotada())
        return QStringLiteral("O registro de %1 está em uso em outra estação. Tente novamente em alguns instantes.")
            .arg(tabelaDoComando(sql));
    if (falha.ConexaoPerdida() && !consulta && falha.etapa >= Firebird::Etapa::Executar)
        return QStringLiteral("A conexão com o banco de dados %1 caiu durante a gravação; confira se a alteração foi gravada: %2")
            .arg(database, inicioDoComando(sql, 60));
    return QStringLiteral("%1\n(banco de dados %2; comando: %3)").arg(falha.texto, database, inicioDoComando(sql, 80));
}

// Short, growing and jittered, so that two stations that collided do not collide again.
void esperarAposConflito(int tentativa)
{
    QThread::msleep(unsigned(25 * tentativa + QRandomGenerator::global()->bounded(25)));
}

} // namespace

// --- TQ -------------------------------------------------------------------------------------------

TQ::TQ(QStringList columns, QVector<QVector<QVariant>> rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows))
{
}

int TQ::FieldIndex(const QString &name) const
{
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

TQCampo TQ::FieldByName(const QString &name) const
{
    const int column = FieldIndex(name);
    if (column < 0)
        throw std::invalid_argument("TQ: no column " + name.toStdString());
    return TQCampo(this, column);
}

QVariant TQ::valueAt(int column) const
{
    if (Eof())
        return {};
    return m_rows.at(m_row).at(column);
}

bool TQCampo::IsNull() const { return m_query->valueAt(m_column).isNull(); }
QVariant TQCampo::Value() const { return m_query->valueAt(m_column); }

QString TQCampo::AsString() const
{
    const QVariant v = Value();
    if (v.isNull())
        return {};
    switch (v.typeId()) {
    case QMetaType::QByteArray:
        return QString::fromUtf8(v.toByteArray());
    case QMetaType::Double:
    case QMetaType::Float:
        return FloatToStrPonto(v.toDouble());
    case QMetaType::QDate:
        return v.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    default:
        return v.toString();
    }
}

qint64 TQCampo::AsInt64() const
{
    bool ok = false;
    const QString text = AsString().trimmed();
    const qint64 whole = text.toLongLong(&ok);
    if (ok)
        return whole;
    // A NUMERIC value such as "12.0000".
    const auto money = Money::parse(text);
    return money ? money->raw() / Money::Scale : 0;
}

int TQCampo::AsInteger() const { return int(AsInt64()); }

double TQCampo::AsFloat() const
{
    bool ok = false;
    const double value = AsString().trimmed().toDouble(&ok);
    return ok ? value : 0.0;
}

Money TQCampo::AsMoney() const
{
    const QVariant v = Value();
    const auto valor = v.typeId() == QMetaType::Double ? std::optional(Money::fromDouble(v.toDouble()))
                                                      : Money::parse(AsString().trimmed());
    if (valor && valor->CabeNaColuna())
        return *valor;
    // Never a wrapped or clipped amount: the value is refused and the read says so.
    if (!v.isNull() && !AsString().trimmed().isEmpty())
        qCWarning(lcSql).noquote() << QStringLiteral("O valor %1 da coluna %2 não é um valor em dinheiro válido.")
                                          .arg(AsString(), m_query->FieldName(m_column));
    return Money();
}

QDate TQCampo::AsDate() const
{
    const QVariant v = Value();
    return v.typeId() == QMetaType::QDateTime ? v.toDateTime().date() : v.toDate();
}

QDateTime TQCampo::AsDateTime() const
{
    const QVariant v = Value();
    return v.typeId() == QMetaType::QDate ? v.toDate().startOfDay() : v.toDateTime();
}

bool TQCampo::AsBoolean() const { return AsString().trimmed() == QLatin1String("S"); }

// --- TConexaoSQL ------------------------------------------------------------------------------------

TConexaoSQL::TConexaoSQL() : TConexaoSQL(Contexto::Atual().banco) {}

TConexaoSQL::TConexaoSQL(TDadosBanco banco) : m_banco(std::move(banco)) {}

TConexaoSQL::~TConexaoSQL()
{
    if (m_contagem > 0)
        Pool::Instancia().Devolver(m_nome);
}

void TConexaoSQL::PegarDados(const TConexaoSQL &outra)
{
    if (m_contagem > 0) {
        Pool::Instancia().Devolver(m_nome);
        m_contagem = 0;
        m_nome.clear();
    }
    m_banco = outra.m_banco;
}

bool TConexaoSQL::Conectar()
{
    if (m_contagem == 0) {
        Falha falha;
        m_nome = Pool::Instancia().Obter(m_banco, &falha);
        if (m_nome.isEmpty()) {
            m_erro = QStringLiteral("Não foi possível abrir o banco de dados %1: %2").arg(m_banco.database, falha.texto);
            qCWarning(lcSql).noquote() << m_erro;
            return false;
        }
    }
    ++m_contagem;
    return true;
}

void TConexaoSQL::Desconectar()
{
    if (m_contagem == 0)
        return;
    if (--m_contagem == 0) {
        Pool::Instancia().Devolver(m_nome);
        m_nome.clear();
    }
}

bool TConexaoSQL::executar(const QString &sql, std::unique_ptr<TQ> *result)
{
    qCDebug(lcSql).noquote() << sql;
    if (!Conectar())
        return false;
    Firebird::Resultado resultado;
    Falha falha;
    bool ok = false;
    bool reanexou = false;
    for (int conflitos = 0;;) {
        Firebird::TAnexacao *anexacao = Pool::Instancia().Anexacao(m_nome);
        resultado = {};
        ok = (anexacao->Anexada() || Pool::Instancia().Reanexar(m_nome, &falha))
             && anexacao->Iniciar({esperaTrava}, &falha) && anexacao->Executar(sql, &resultado, &falha)
             && anexacao->Confirmar(&falha);
        if (ok)
            break;
        anexacao->Desfazer();
        if (falha.ConexaoPerdida())
            anexacao->Desanexar();
        // A write that reached the server may have been recorded: only a select or a statement
        // that never ran is repeated.
        const bool repetivel = falha.etapa < Firebird::Etapa::Executar || resultado.consulta;
        if (falha.ConexaoPerdida() && repetivel && !reanexou) {
            reanexou = true;
            continue;
        }
        if (falha.Conflito() && conflitos < TentativasEmConflito) {
            esperarAposConflito(++conflitos);
            continue;
        }
        break;
    }
    if (!ok) {
        m_erro = mensagemDaFalha(falha, resultado.consulta, sql, m_banco.database);
        qCWarning(lcSql).noquote() << "falhou:" << m_erro;
    } else if (result) {
        *result = std::make_unique<TQ>(std::move(resultado.colunas), std::move(resultado.linhas));
    }
    Desconectar();
    return ok;
}

bool TConexaoSQL::Exec(const QString &sql)
{
    return executar(sql, nullptr);
}

std::unique_ptr<TQ> TConexaoSQL::Ab(const QString &sql)
{
    std::unique_ptr<TQ> result;
    if (!executar(sql, &result))
        return nullptr;
    return result;
}

int TConexaoSQL::ValorInt(const QString &sql, int padrao)
{
    const auto q = Ab(sql);
    if (!q || q->IsEmpty() || q->FieldCount() == 0 || q->Fields(0).IsNull())
        return padrao;
    return q->Fields(0).AsInteger();
}

QString TConexaoSQL::ValorStr(const QString &sql)
{
    const auto q = Ab(sql);
    if (!q || q->IsEmpty() || q->FieldCount() == 0)
        return {};
    return q->Fields(0).AsString();
}

qint64 TConexaoSQL::ProximoGenerator(const QString &generator, int passo)
{
    const auto q = Ab(QStringLiteral("select GEN_ID(%1, %2) from RDB$DATABASE").arg(generator).arg(passo));
    if (!q || q->IsEmpty())
        return 0;
    return q->Fields(0).AsInt64();
}

int TConexaoSQL::AnexacoesAbertas()
{
    return Pool::Instancia().Abertas();
}

void TConexaoSQL::FecharOciosas(const QString &database)
{
    Pool::Instancia().FecharOciosas(database);
}

void TConexaoSQL::DefinirEsperaTrava(int segundos)
{
    esperaTrava = segundos;
}
