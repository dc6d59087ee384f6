#pragma once

#include "TEnderecosNFe.h"

#include <QByteArray>
#include <QString>

class TCertificadoA1;

// What came back from one SOAP request.
struct TRespostaTransporte
{
    enum class TFalha {
        Nenhuma,
        SemResposta,       // time-out or connection lost after the request went out: it may have arrived
        Recusada,          // nothing was delivered: connection refused, TLS handshake refused, bad address
        RespostaInvalida,  // an answer that is not the expected SOAP (HTML page, HTTP error, truncated, fault)
    };
    TFalha falha = TFalha::Nenhuma;
    QString erro;          // one Portuguese line naming what failed and where (the address)
    QByteArray mensagem;   // the element inside nfeResultMsg (retEnviNFe, retConsSitNFe, ...)
    bool Ok() const { return falha == TFalha::Nenhuma; }
};

// The wire to the authority. The real one is SOAP 1.2 over mutual TLS; the tests use it too,
// against the simulator.
class TTransporteNFe
{
public:
    virtual ~TTransporteNFe() = default;
    // `mensagem` is the XML message (enviNFe, consStatServ, ...) without the XML declaration.
    virtual TRespostaTransporte Postar(const TServicoNFe &servico, const QByteArray &mensagem) = 0;
};

// SOAP 1.2 through Qt Network with the company's A1 certificate as the TLS client certificate,
// the server's chain checked against the trusted roots of PAVREL_NFE_CA (a PEM bundle); never
// without that check. Waits in a local event loop, so the screen stays painted.
class TTransporteSoap final : public TTransporteNFe
{
public:
    explicit TTransporteSoap(const TCertificadoA1 &certificado, int tempoLimiteMs = 30000);
    ~TTransporteSoap() override;
    TRespostaTransporte Postar(const TServicoNFe &servico, const QByteArray &mensagem) override;

private:
    struct Dados;
    Dados *d;
};
