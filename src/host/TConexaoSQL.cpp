#include "TConexaoSQL.h"

#include "Valores.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>

#include <stdexcept>

Q_LOGGING_CATEGORY(lcSql, "pavrel.sql", QtWarningMsg)

// --- the pool ---------------------------------------------------------------------------------

namespace {

struct Anexacao
{
    QString nome;
    TDadosBanco banco;
    Qt::HANDLE thread;
    bool emUso;
};

// Attachments belong to the thread that opened them (QSqlDatabase's rule).
class Pool final
{
public:
    static Pool &instancia()
    {
        // Never destroyed: connections held by other statics may be returned during exit.
        static Pool *pool = new Pool;
        return *pool;
    }

    QString obter(const TDadosBanco &banco, QString *erro)
    {
        const Qt::HANDLE thread = QThread::currentThreadId();
        for (Anexacao &a : m_anexacoes) {
            if (!a.emUso && a.thread == thread && a.banco == banco
                && QSqlDatabase::database(a.nome, false).isOpen()) {
                a.emUso = true;
                return a.nome;
            }
        }
        const QString nome = QStringLiteral("pavrel-%1").arg(++m_sequencia);
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QIBASE"), nome);
        db.setDatabaseName(banco.database);
        db.setUserName(banco.usuario);
        db.setPassword(banco.senha);
        db.setConnectOptions(QStringLiteral("ISC_DPB_LC_CTYPE=UTF8"));
        if (!db.open()) {
            *erro = QStringLiteral("Não foi possível abrir o banco de dados %1: %2")
                        .arg(banco.database, db.lastError().text());
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(nome);
            return {};
        }
        ++m_abertas;
        m_anexacoes.push_back({nome, banco, thread, true});
        return nome;
    }

    void devolver(const QString &nome)
    {
        for (Anexacao &a : m_anexacoes) {
            if (a.nome == nome)
                a.emUso = false;
        }
    }

    void fecharOciosas(const QString &database)
    {
        for (auto it = m_anexacoes.begin(); it != m_anexacoes.end();) {
            if (!it->emUso && (database.isEmpty() || it->banco.database == database)) {
                {
                    QSqlDatabase db = QSqlDatabase::database(it->nome, false);
                    db.close();
                }
                QSqlDatabase::removeDatabase(it->nome);
                it = m_anexacoes.erase(it);
            } else {
                ++it;
            }
        }
    }

    int abertas() const { return m_abertas; }

private:
    QVector<Anexacao> m_anexacoes;
    int m_sequencia = 0;
    int m_abertas = 0;
};

// A CHAR column comes padded to its size in bytes (four per character in UTF8); the blanks
// are not part of the value.
constexpr int SqlTipoChar = 452;

QString semBrancosAFinal(QString texto)
{
    qsizetype fim = texto.size();
    while (fim > 0 && texto.at(fim - 1) == QLatin1Char(' '))
        --fim;
    texto.truncate(fim);
    return texto;
}

// Scaled integers (NUMERIC columns) reach the driver's text through a double, so 1000000.0000
// arrives as "1e+06". Four decimals of a double's shortest text are exact for any amount a
// store holds (below 10^11), so the value is written back as plain decimal text.
constexpr int SqlTipoInt64 = 580;
constexpr int SqlTipoLong = 496;
constexpr int SqlTipoShort = 500;

QVariant normalizado(const QVariant &valor, int tipo)
{
    if (valor.isNull())
        return valor;
    if (tipo == SqlTipoChar)
        return semBrancosAFinal(valor.toString());
    if ((tipo == SqlTipoInt64 || tipo == SqlTipoLong || tipo == SqlTipoShort) && valor.typeId() == QMetaType::QString) {
        const QString texto = valor.toString();
        if (texto.contains(QLatin1Char('e'), Qt::CaseInsensitive))
            return Money::fromDouble(texto.toDouble()).toString();
    }
    return valor;
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
    return Money::parse(AsString().trimmed()).value_or(Money());
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
        Pool::instancia().devolver(m_nome);
}

void TConexaoSQL::PegarDados(const TConexaoSQL &outra)
{
    if (m_contagem > 0) {
        Pool::instancia().devolver(m_nome);
        m_contagem = 0;
        m_nome.clear();
    }
    m_banco = outra.m_banco;
}

bool TConexaoSQL::Conectar()
{
    if (m_contagem == 0) {
        m_nome = Pool::instancia().obter(m_banco, &m_erro);
        if (m_nome.isEmpty())
            return false;
    }
    ++m_contagem;
    return true;
}

void TConexaoSQL::Desconectar()
{
    if (m_contagem == 0)
        return;
    if (--m_contagem == 0) {
        Pool::instancia().devolver(m_nome);
        m_nome.clear();
    }
}

bool TConexaoSQL::executar(const QString &sql, std::unique_ptr<TQ> *result)
{
    qCDebug(lcSql).noquote() << sql;
    if (!Conectar())
        return false;
    bool ok;
    {
        QSqlQuery query(QSqlDatabase::database(m_nome, false));
        query.setForwardOnly(true);
        query.setNumericalPrecisionPolicy(QSql::HighPrecision);
        ok = query.exec(sql);
        if (!ok) {
            m_erro = query.lastError().text();
            qCWarning(lcSql).noquote() << "falhou:" << m_erro;
        } else if (result) {
            const QSqlRecord record = query.record();
            QStringList columns;
            QVector<int> tipos(record.count());
            for (int i = 0; i < record.count(); ++i) {
                columns << record.fieldName(i);
                tipos[i] = record.field(i).typeID() & ~1;   // the low bit flags nullable
            }
            QVector<QVector<QVariant>> rows;
            while (query.next()) {
                QVector<QVariant> row(record.count());
                for (int i = 0; i < record.count(); ++i)
                    row[i] = normalizado(query.value(i), tipos[i]);
                rows.push_back(std::move(row));
            }
            *result = std::make_unique<TQ>(std::move(columns), std::move(rows));
        }
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
    return Pool::instancia().abertas();
}

void TConexaoSQL::FecharOciosas(const QString &database)
{
    Pool::instancia().fecharOciosas(database);
}
