#include "TServicosNFe.h"

TServicosNFe::TServicosNFe(TTransporteNFe &transporte, const QString &uf, int tpAmb)
    : m_transporte(transporte), m_uf(uf), m_tpAmb(tpAmb)
{
}

TRetornoSefaz TServicosNFe::Status(const QString &) { return {}; }
TRetornoAutorizacao TServicosNFe::Autorizar(const QString &, const QByteArray &, qint64) { return {}; }
TRetornoConsulta TServicosNFe::Consultar(const QString &, const QString &) { return {}; }
TRetornoEvento TServicosNFe::EnviarEvento(const QString &, const QByteArray &, qint64) { return {}; }
TRetornoDistribuicao TServicosNFe::Distribuicao(const QString &, const QString &) { return {}; }
TRetornoDistribuicao TServicosNFe::DistribuicaoPorChave(const QString &, const QString &) { return {}; }

bool MontarNfeProc(const QByteArray &, const TProtocoloNFe &, QByteArray *, QString *) { return false; }
