#include "TEventoNFe.h"

namespace TEventoNFe {

const QString CondicaoUsoCCe;
QByteArray Montar(const TPedidoEvento &) { return {}; }
QString Id(const TPedidoEvento &) { return {}; }
bool MontarAssinado(const TPedidoEvento &, const TCertificadoA1 &, QByteArray *, QString *) { return false; }
QByteArray MontarProc(const QByteArray &, const QByteArray &) { return {}; }

} // namespace TEventoNFe
