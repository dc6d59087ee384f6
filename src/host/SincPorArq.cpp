#include "SincPorArq.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <QDeadlineTimer>
#include <QThread>

TSincPorArq::TSincPorArq(const QString &nome, const QString &texto, const QString &classe, int segundos,
                         TDadosBanco banco)
    : m_nome(nome.left(100)), m_texto(texto.left(500)), m_classe(classe.left(60)), m_segundos(segundos),
      m_banco(std::move(banco))
{
}

bool TSincPorArq::garantirLinha()
{
    // Looked up first: an insert over a row held by another process would wait for it.
    TConexaoSQL conexao(m_banco);
    if (conexao.ValorInt(QStringLiteral("select count(*) from sinc_trava where nome=") + QuotedStr(m_nome), -1) > 0)
        return true;
    if (conexao.UltimoErro().contains(QLatin1String("SINC_TRAVA"), Qt::CaseInsensitive))
        conexao.Exec(QStringLiteral("create table sinc_trava (nome varchar(100) not null primary key, "
                                    "texto varchar(500), classe varchar(60), estacao integer, adquirido timestamp)"));
    // Another process may insert the same row meanwhile; what matters is that it exists.
    if (conexao.Exec(QStringLiteral("execute block as begin\n"
                                    "  insert into sinc_trava (nome) values (%1);\n"
                                    "  when gdscode unique_key_violation do begin end\n"
                                    "end").arg(QuotedStr(m_nome))))
        return true;
    m_erro = QStringLiteral("Não foi possível criar a trava %1: %2").arg(m_nome, conexao.UltimoErro());
    return false;
}

bool TSincPorArq::Adquirir()
{
    if (Adquirida())
        return true;
    m_erro.clear();
    m_emUso = false;
    if (!garantirLinha())
        return false;
    Firebird::Falha falha;
    const QString sql = QStringLiteral("update sinc_trava set texto=%1, classe=%2, estacao=%3, adquirido=current_timestamp "
                                       "where nome=%4")
                            .arg(QuotedStr(m_texto), QuotedStr(m_classe))
                            .arg(Contexto::Atual().estacao)
                            .arg(QuotedStr(m_nome));
    const QDeadlineTimer prazo(qint64(m_segundos) * 1000);
    if (!m_anexacao.Anexar(m_banco, &falha)) {
        m_erro = QStringLiteral("Não foi possível abrir o banco de dados %1 para a trava %2: %3")
                     .arg(m_banco.database, m_nome, falha.texto);
        return false;
    }
    // The engine's lock clock counts whole seconds, so it waits whole seconds that end before the
    // deadline and the last fraction is polled.
    for (;;) {
        const int espera = int(prazo.remainingTime() / 1000);
        if (m_anexacao.Iniciar({espera}, &falha) && m_anexacao.Executar(sql, nullptr, &falha))
            return true;
        m_anexacao.Desfazer();
        if (!(falha.Conflito() || falha.EsperaEsgotada()) || prazo.hasExpired())
            break;
        if (espera == 0)
            QThread::msleep(50);
    }
    m_anexacao.Desanexar();
    m_emUso = falha.EsperaEsgotada() || falha.Conflito();
    m_erro = m_emUso ? QStringLiteral("A trava %1 está em uso em outra estação.").arg(m_nome)
                 : QStringLiteral("Não foi possível obter a trava %1: %2").arg(m_nome, falha.texto);
    return false;
}

void TSincPorArq::Liberar()
{
    m_anexacao.Desanexar();
}

std::unique_ptr<TSincPorArq> SincPorArq_Create(const QString &nome, const QString &texto, const QString &classe,
                                               int segundos, bool flag)
{
    Q_UNUSED(flag);
    return std::make_unique<TSincPorArq>(nome, texto, classe, segundos, Contexto::Atual().banco);
}
