#include "TTransporteNFe.h"

struct TTransporteSoap::Dados
{
};

TTransporteSoap::TTransporteSoap(const TCertificadoA1 &, int) : d(new Dados) {}
TTransporteSoap::~TTransporteSoap() { delete d; }

TRespostaTransporte TTransporteSoap::Postar(const TServicoNFe &, const QByteArray &)
{
    return {TRespostaTransporte::TFalha::Recusada, QStringLiteral("transporte não implementado"), {}};
}
