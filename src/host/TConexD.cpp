#include "TConexD.h"

#include "Database.h"

#include <QFileInfo>
#include <QTcpSocket>

TConexaoSQL &TConexD::Conexao()
{
    static TConexaoSQL conexao;
    if (!conexao.Conectado() && !(conexao.Dados() == Contexto::Atual().banco)) {
        TConexaoSQL doContexto;
        conexao.PegarDados(doContexto);
    }
    return conexao;
}

QString ValorString(const QString &sql)
{
    return TConexD::Conexao().ValorStr(sql);
}

int Inteiro(const QString &sql)
{
    return TConexD::Conexao().ValorInt(sql);
}

bool TTerminalModoOper::ConectouServidor()
{
    return ConectouServidor(Contexto::Atual().banco.database);
}

bool TTerminalModoOper::ConectouServidor(const QString &database)
{
    if (!Database::IsServerPath(database))
        return QFileInfo::exists(database);
    // "host:path" or "host/port:path".
    const QString servidor = database.section(QLatin1Char(':'), 0, 0);
    const QString host = servidor.section(QLatin1Char('/'), 0, 0);
    const quint16 porta = servidor.contains(QLatin1Char('/'))
                              ? quint16(servidor.section(QLatin1Char('/'), 1).toUInt())
                              : quint16(3050);
    QTcpSocket socket;
    socket.connectToHost(host, porta);
    return socket.waitForConnected(3000);
}
