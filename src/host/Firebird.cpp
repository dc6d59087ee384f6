#include "Firebird.h"

#include "Money.h"

#include <QDateTime>
#include <QElapsedTimer>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace Firebird {

namespace {

bool falhou(const ISC_STATUS *status) { return status[0] == 1 && status[1] != 0; }

void preencher(Falha *falha, Etapa etapa, const ISC_STATUS *status)
{
    falha->etapa = etapa;
    falha->codigos.clear();
    // The vector is a list of (kind, value...) clusters; isc_arg_gds carries an error code.
    for (const ISC_STATUS *s = status; *s != isc_arg_end;) {
        const ISC_STATUS tipo = *s++;
        if (tipo == isc_arg_gds)
            falha->codigos.push_back(*s);
        s += tipo == isc_arg_cstring ? 2 : 1;
    }
    falha->texto = Mensagem(status);
    falha->esperaEsgotada = false;
}

void falharCom(Falha *falha, Etapa etapa, const QString &texto)
{
    falha->etapa = etapa;
    falha->codigos.clear();
    falha->texto = texto;
    falha->esperaEsgotada = false;
}

QByteArray dpb(const TDadosBanco &banco)
{
    QByteArray dpb(1, char(isc_dpb_version1));
    const auto add = [&dpb](char tag, const QByteArray &valor) {
        dpb.append(tag);
        dpb.append(char(valor.size()));
        dpb.append(valor);
    };
    add(char(isc_dpb_user_name), banco.usuario.toUtf8());
    add(char(isc_dpb_password), banco.senha.toUtf8());
    add(char(isc_dpb_lc_ctype), QByteArrayLiteral("UTF8"));
    return dpb;
}

QByteArray tpb(const Transacao &opcoes)
{
    QByteArray tpb;
    for (const int tag : {isc_tpb_version3, isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_write})
        tpb.append(char(tag));
    if (opcoes.esperaSegundos <= 0) {
        tpb.append(char(isc_tpb_nowait));
        return tpb;
    }
    tpb.append(char(isc_tpb_wait));
    tpb.append(char(isc_tpb_lock_timeout));
    tpb.append(char(4));
    const qint32 segundos = opcoes.esperaSegundos;
    for (int i = 0; i < 4; ++i)
        tpb.append(char((segundos >> (8 * i)) & 0xff));
    return tpb;
}

// The column layout of a statement with a buffer for each value.
class Descritor final
{
public:
    explicit Descritor(short n) { redimensionar(n); }
    ~Descritor() { std::free(m_sqlda); }
    Descritor(const Descritor &) = delete;
    Descritor &operator=(const Descritor &) = delete;

    XSQLDA *get() { return m_sqlda; }
    void redimensionar(short n)
    {
        std::free(m_sqlda);
        m_sqlda = static_cast<XSQLDA *>(std::calloc(1, XSQLDA_LENGTH(n < 1 ? 1 : n)));
        m_sqlda->version = SQLDA_VERSION1;
        m_sqlda->sqln = n < 1 ? 1 : n;
    }
    void alocar()
    {
        m_dados.assign(size_t(m_sqlda->sqld), {});
        m_nulos.assign(size_t(m_sqlda->sqld), 0);
        for (short i = 0; i < m_sqlda->sqld; ++i) {
            XSQLVAR &var = m_sqlda->sqlvar[i];
            const int tipo = var.sqltype & ~1;
            // Varying text carries a 2-byte length before its bytes.
            m_dados[i].resize(size_t(var.sqllen) + (tipo == SQL_VARYING ? 2 : 0));
            var.sqldata = m_dados[i].data();
            var.sqlind = &m_nulos[i];
            var.sqltype |= 1;
        }
    }

private:
    XSQLDA *m_sqlda = nullptr;
    std::vector<std::vector<char>> m_dados;
    std::vector<ISC_SHORT> m_nulos;
};

// NUMERIC/DECIMAL as exact decimal text without trailing zeros, as the money type writes it
// ("12.5", "-0.0001", "1000000").
QString textoEscalado(qint64 valor, int escala)
{
    const bool negativo = valor < 0;
    QString digitos = QString::number(negativo ? -(unsigned long long)(valor) : (unsigned long long)(valor));
    const int casas = -escala;
    if (digitos.size() <= casas)
        digitos = QString(casas - digitos.size() + 1, QLatin1Char('0')) + digitos;
    QString inteira = digitos.left(digitos.size() - casas);
    QString fracao = digitos.right(casas);
    while (fracao.endsWith(QLatin1Char('0')))
        fracao.chop(1);
    QString texto = negativo ? QStringLiteral("-") + inteira : inteira;
    if (!fracao.isEmpty())
        texto += QLatin1Char('.') + fracao;
    return texto;
}

// Whether a scaled value fits the money columns, so that reading it as money never wraps.
bool cabeComoDinheiro(qint64 valor, int escala)
{
    __extension__ __int128 quatroCasas = valor;
    for (int e = escala; e < -4; ++e)
        quatroCasas /= 10;
    for (int e = escala; e > -4; --e)
        quatroCasas *= 10;
    return quatroCasas >= -Money::MaxColunaRaw && quatroCasas <= Money::MaxColunaRaw;
}

QString semBrancosAFinal(const char *texto, int tamanho)
{
    while (tamanho > 0 && texto[tamanho - 1] == ' ')
        --tamanho;
    return QString::fromUtf8(texto, tamanho);
}

// ISC dates count days from 1858-11-17; times count 1/10000 s from midnight.
QDate data(ISC_DATE dias) { return QDate::fromJulianDay(qint64(dias) + 2400001); }
QTime hora(ISC_TIME decimilesimos) { return QTime::fromMSecsSinceStartOfDay(int(decimilesimos / 10)); }

// The buffers carry no alignment promise.
template <typename T>
T lido(const char *dados)
{
    T valor;
    std::memcpy(&valor, dados, sizeof valor);
    return valor;
}

QString nomeColuna(const XSQLVAR &var)
{
    return QString::fromUtf8(var.aliasname, var.aliasname_length);
}

} // namespace

bool Falha::Contem(ISC_STATUS codigo) const
{
    for (const ISC_STATUS c : codigos) {
        if (c == codigo)
            return true;
    }
    return false;
}

bool Falha::ConexaoPerdida() const
{
    for (const ISC_STATUS c : {isc_network_error, isc_net_read_err, isc_net_write_err, isc_lost_db_connection,
                               isc_att_shutdown, isc_shutdown, isc_shutinprog, isc_conn_lost, isc_net_connect_err,
                               isc_net_lookup_err}) {
        if (Contem(c))
            return true;
    }
    return false;
}

bool Falha::Conflito() const
{
    return !EsperaEsgotada() && (Contem(isc_update_conflict) || Contem(isc_deadlock) || Contem(isc_lock_conflict));
}

QString Mensagem(const ISC_STATUS *status)
{
    QString texto;
    char buffer[1024];
    const ISC_STATUS *vector = status;
    while (fb_interpret(buffer, sizeof buffer, &vector) > 0) {
        if (!texto.isEmpty())
            texto += QLatin1Char(' ');
        texto += QString::fromUtf8(buffer);
    }
    return texto;
}

TAnexacao::~TAnexacao() { Desanexar(); }

bool TAnexacao::Anexar(const TDadosBanco &banco, Falha *falha)
{
    Desanexar();
    const QByteArray caminho = banco.database.toUtf8();
    const QByteArray parametros = dpb(banco);
    ISC_STATUS_ARRAY status{};
    isc_attach_database(status, 0, caminho.constData(), &m_db, short(parametros.size()), parametros.constData());
    if (falhou(status)) {
        m_db = 0;
        preencher(falha, Etapa::Anexar, status);
        return false;
    }
    return true;
}

void TAnexacao::Desanexar()
{
    Desfazer();
    if (m_db) {
        ISC_STATUS_ARRAY status{};
        isc_detach_database(status, &m_db);
        m_db = 0;
    }
}

bool TAnexacao::Iniciar(const Transacao &opcoes, Falha *falha)
{
    Desfazer();
    m_espera = opcoes.esperaSegundos;
    const QByteArray parametros = tpb(opcoes);
    ISC_STATUS_ARRAY status{};
    isc_start_transaction(status, &m_tr, 1, &m_db, int(parametros.size()), parametros.constData());
    if (falhou(status)) {
        m_tr = 0;
        preencher(falha, Etapa::Iniciar, status);
        return false;
    }
    return true;
}

bool TAnexacao::Confirmar(Falha *falha)
{
    ISC_STATUS_ARRAY status{};
    isc_commit_transaction(status, &m_tr);
    if (falhou(status)) {
        preencher(falha, Etapa::Confirmar, status);
        Desfazer();
        return false;
    }
    m_tr = 0;
    return true;
}

void TAnexacao::Desfazer()
{
    if (m_tr) {
        ISC_STATUS_ARRAY status{};
        isc_rollback_transaction(status, &m_tr);
        m_tr = 0;
    }
}

namespace {

class Comando final
{
public:
    explicit Comando(isc_db_handle *db) : m_db(db) {}
    ~Comando()
    {
        if (m_stmt) {
            ISC_STATUS_ARRAY status{};
            isc_dsql_free_statement(status, &m_stmt, DSQL_drop);
        }
    }
    Comando(const Comando &) = delete;
    Comando &operator=(const Comando &) = delete;

    bool preparar(isc_tr_handle *tr, const QByteArray &sql, Falha *falha)
    {
        ISC_STATUS_ARRAY status{};
        isc_dsql_allocate_statement(status, m_db, &m_stmt);
        if (!falhou(status))
            isc_dsql_prepare(status, tr, &m_stmt, 0, sql.constData(), SQL_DIALECT_V6, m_saida.get());
        if (!falhou(status) && m_saida.get()->sqld > m_saida.get()->sqln) {
            m_saida.redimensionar(m_saida.get()->sqld);
            isc_dsql_describe(status, &m_stmt, SQLDA_VERSION1, m_saida.get());
        }
        if (!falhou(status))
            m_tipo = tipo(status);
        if (falhou(status)) {
            preencher(falha, Etapa::Preparar, status);
            return false;
        }
        m_saida.alocar();
        return true;
    }

    bool consulta() const { return m_tipo == isc_info_sql_stmt_select || m_tipo == isc_info_sql_stmt_select_for_upd; }

    bool executar(isc_tr_handle *tr, Resultado *resultado, Falha *falha)
    {
        XSQLDA *saida = m_saida.get();
        ISC_STATUS_ARRAY status{};
        const bool comLinha = !consulta() && saida->sqld > 0;
        isc_dsql_execute2(status, tr, &m_stmt, SQLDA_VERSION1, nullptr, comLinha ? saida : nullptr);
        if (falhou(status)) {
            preencher(falha, Etapa::Executar, status);
            return false;
        }
        if (!resultado)
            return true;
        for (short i = 0; i < saida->sqld; ++i)
            resultado->colunas << nomeColuna(saida->sqlvar[i]);
        if (comLinha)
            return linha(tr, resultado, falha);
        if (!consulta())
            return true;
        for (;;) {
            const ISC_STATUS r = isc_dsql_fetch(status, &m_stmt, SQLDA_VERSION1, saida);
            if (r == 100)
                return true;
            if (falhou(status)) {
                preencher(falha, Etapa::Executar, status);
                return false;
            }
            if (!linha(tr, resultado, falha))
                return false;
        }
    }

private:
    int tipo(ISC_STATUS *status)
    {
        const char pedido[] = {isc_info_sql_stmt_type};
        char resposta[16] = {};
        isc_dsql_sql_info(status, &m_stmt, sizeof pedido, pedido, sizeof resposta, resposta);
        if (falhou(status) || resposta[0] != isc_info_sql_stmt_type)
            return 0;
        const short tamanho = short(isc_vax_integer(resposta + 1, 2));
        return int(isc_vax_integer(resposta + 3, tamanho));
    }

    bool linha(isc_tr_handle *tr, Resultado *resultado, Falha *falha)
    {
        XSQLDA *saida = m_saida.get();
        QVector<QVariant> valores(saida->sqld);
        for (short i = 0; i < saida->sqld; ++i) {
            if (!valor(tr, saida->sqlvar[i], &valores[i], falha))
                return false;
        }
        resultado->linhas.push_back(std::move(valores));
        return true;
    }

    bool valor(isc_tr_handle *tr, const XSQLVAR &var, QVariant *v, Falha *falha)
    {
        if (*var.sqlind < 0)
            return true;
        const char *dados = var.sqldata;
        const auto inteiro = [&](qint64 n) {
            if (var.sqlscale == 0) {
                *v = (var.sqltype & ~1) == SQL_INT64 ? QVariant(n) : QVariant(int(n));
                return true;
            }
            if (!cabeComoDinheiro(n, var.sqlscale)) {
                falharCom(falha, Etapa::Executar,
                          QStringLiteral("O valor %1 da coluna %2 passa do limite dos valores em dinheiro (%3).")
                              .arg(textoEscalado(n, var.sqlscale), nomeColuna(var),
                                   Money::fromRaw(Money::MaxColunaRaw).toString()));
                return false;
            }
            *v = textoEscalado(n, var.sqlscale);
            return true;
        };
        switch (var.sqltype & ~1) {
        case SQL_TEXT:
            *v = semBrancosAFinal(dados, var.sqllen);
            return true;
        case SQL_VARYING:
            *v = QString::fromUtf8(dados + 2, lido<ISC_SHORT>(dados));
            return true;
        case SQL_SHORT:
            return inteiro(lido<ISC_SHORT>(dados));
        case SQL_LONG:
            return inteiro(lido<ISC_LONG>(dados));
        case SQL_INT64:
            return inteiro(lido<ISC_INT64>(dados));
        case SQL_FLOAT:
            *v = double(lido<float>(dados));
            return true;
        case SQL_DOUBLE:
            *v = lido<double>(dados);
            return true;
        case SQL_BOOLEAN:
            *v = *dados != 0;
            return true;
        case SQL_TYPE_DATE:
            *v = data(lido<ISC_DATE>(dados));
            return true;
        case SQL_TYPE_TIME:
            *v = hora(lido<ISC_TIME>(dados));
            return true;
        case SQL_TIMESTAMP: {
            const auto ts = lido<ISC_TIMESTAMP>(dados);
            *v = QDateTime(data(ts.timestamp_date), hora(ts.timestamp_time));
            return true;
        }
        case SQL_BLOB: {
            auto id = lido<ISC_QUAD>(dados);
            QByteArray bytes;
            if (!blob(tr, &id, &bytes, falha))
                return false;
            *v = var.sqlsubtype == 1 ? QVariant(QString::fromUtf8(bytes)) : QVariant(bytes);
            return true;
        }
        default:
            falharCom(falha, Etapa::Executar,
                      QStringLiteral("A coluna %1 tem um tipo que o programa não lê (%2).").arg(nomeColuna(var)).arg(var.sqltype & ~1));
            return false;
        }
    }

    bool blob(isc_tr_handle *tr, ISC_QUAD *id, QByteArray *bytes, Falha *falha)
    {
        ISC_STATUS_ARRAY status{};
        isc_blob_handle handle = 0;
        isc_open_blob2(status, m_db, tr, &handle, id, 0, nullptr);
        char trecho[32768];
        bool ok = !falhou(status);
        while (ok) {
            unsigned short lidos = 0;
            // isc_segment: a piece of a longer segment, more follows.
            const ISC_STATUS r = isc_get_segment(status, &handle, &lidos, sizeof trecho, trecho);
            if (r == isc_segstr_eof)
                break;
            ok = r == 0 || r == isc_segment;
            if (ok)
                bytes->append(trecho, lidos);
        }
        if (!ok)
            preencher(falha, Etapa::Executar, status);
        if (handle) {
            ISC_STATUS_ARRAY fechar{};
            isc_close_blob(fechar, &handle);
        }
        return ok;
    }

    isc_db_handle *m_db;
    isc_stmt_handle m_stmt = 0;
    Descritor m_saida{20};
    int m_tipo = 0;
};

} // namespace

bool TAnexacao::Executar(const QString &sql, Resultado *resultado, Falha *falha)
{
    Comando comando(&m_db);
    if (!comando.preparar(&m_tr, sql.toUtf8(), falha))
        return false;
    if (resultado)
        resultado->consulta = comando.consulta();
    QElapsedTimer tempo;
    tempo.start();
    if (comando.executar(&m_tr, resultado, falha))
        return true;
    // The engine reports a row still held at the end of the wait just as it reports a row
    // changed by a transaction that committed meanwhile; only the time waited tells them apart.
    // Its clock counts whole seconds, so a wait of n seconds ends after more than n - 1.
    falha->esperaEsgotada = falha->Conflito() && tempo.elapsed() >= qint64(m_espera - 1) * 1000;
    return false;
}

} // namespace Firebird
