#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

class TCertificadoA1;

// What an event says (cancellation 110111, correction letter 110110, the recipient's
// manifestations 210200/210210/210220/210240).
struct TPedidoEvento
{
    QString chave;              // the NF-e's key
    QString cnpj;               // the author's
    int cOrgao = 0;             // the state's IBGE code, 91 for the national environment
    int tpAmb = 2;
    int tpEvento = 0;
    int nSeqEvento = 1;
    QDateTime dhEvento;
    QString nProt;              // cancellation: the authorised note's protocol
    QString xJust;              // cancellation (15-255) and "operation not performed" (15-255)
    QString xCorrecao;          // correction letter (15-1000)
};

namespace TEventoNFe {

// The evento element, unsigned; its infEvento Id is Id(pedido).
QByteArray Montar(const TPedidoEvento &pedido);
QString Id(const TPedidoEvento &pedido);        // "ID" + tpEvento + key + 2-digit sequence
// Montar, checked against the event's schema and signed; false with erro.
bool MontarAssinado(const TPedidoEvento &pedido, const TCertificadoA1 &certificado, QByteArray *assinado,
                    QString *erro);
// procEventoNFe of a signed evento and the authority's retEvento.
QByteArray MontarProc(const QByteArray &eventoAssinado, const QByteArray &retEvento);
// The conditions-of-use text every correction letter carries.
extern const QString CondicaoUsoCCe;

} // namespace TEventoNFe
