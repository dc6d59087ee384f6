#pragma once

#include <QByteArray>
#include <QString>

// Checks a document against the product's own copy of the tax authority's schemas (libxml2).
// Each schema set is parsed once per process and kept.
namespace TValidadorNFe {

// The top schemas the product checks documents against.
enum class TEsquema {
    NFe,            // nfe-4.00/nfe_v4.00.xsd: a signed or unsigned NFe
    ProcNFe,        // nfe-4.00/procNFe_v4.00.xsd: nfeProc with its protocol
    EventoCanc,     // evento-cancelamento-1.00/eventoCancNFe_v1.00.xsd
    EventoCCe,      // evento-cce-1.00/CCe_v1.00.xsd
    EventoManif,    // evento-manifestacao-1.00/confRecebto_v1.00.xsd: the recipient's manifestations
    ConsStatServ,   // the messages sent to the authority
    EnviNFe,
    ConsSitNFe,
    EnvEventoCanc,
    EnvEventoCCe,
    EnvEventoManif,
    DistDFeInt,
};

// True when the document is valid. Otherwise false and erro holds one Portuguese line naming the
// element and the rule it broke (the value, the pattern or the expected element), e.g.
// "Elemento 'NCM' (item 3): o valor '1234' não segue o formato exigido ([0-9]{2}|[0-9]{8})".
// An NFe still to be signed passes when its Signature is all it lacks. The schemas are compiled
// in (src/hostnfe/esquemas, as Qt resources); tools that want files use that source folder.
bool Validar(const QByteArray &xml, TEsquema esquema, QString *erro);

} // namespace TValidadorNFe
