#pragma once

#include "Contexto.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// A Firebird 3 server of the test's own on a free loopback port, with its own security database,
// so that several processes can share one database as workstations do. It stops with the object.
class ServidorTeste final
{
public:
    ServidorTeste();
    ~ServidorTeste();

    bool ok() const { return m_erro.isEmpty(); }
    QString erro() const { return m_erro; }
    int porta() const { return m_porta; }

    // Copies a database file (closed by its owner) into the server's folder and names it the
    // server's way ("127.0.0.1/port:path").
    TDadosBanco Publicar(const QString &arquivo, const QString &nome);

    bool Parar();
    bool Iniciar();

private:
    bool preparar();
    bool aceitaConexoes(int msLimite) const;

    QTemporaryDir m_pasta;
    QProcess m_processo;
    int m_porta = 0;
    QString m_erro;
};
