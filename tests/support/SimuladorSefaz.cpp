#include "SimuladorSefaz.h"

TSimuladorSefaz::TSimuladorSefaz() = default;
TSimuladorSefaz::~TSimuladorSefaz() = default;
bool TSimuladorSefaz::Iniciar(const QString &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("simulador ainda não feito");
    return false;
}
void TSimuladorSefaz::Apontar() const {}
QString TSimuladorSefaz::Endpoint() const { return QStringLiteral("https://127.0.0.1:%1").arg(m_porta); }
QString TSimuladorSefaz::CaServidor() const { return {}; }
QString TSimuladorSefaz::CertificadoCliente() const { return {}; }
QString TSimuladorSefaz::SenhaCliente() const { return {}; }
QString TSimuladorSefaz::Pasta() const { return m_pasta.path(); }
QString TSimuladorSefaz::Comando(const QString &, QString *) { return {}; }
int TSimuladorSefaz::Pedidos(const QString &) { return 0; }
