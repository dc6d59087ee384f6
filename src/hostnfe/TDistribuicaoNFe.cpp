#include "TDistribuicaoNFe.h"

struct TDistribuicaoNFe::Dados
{
};

TDistribuicaoNFe::TDistribuicaoNFe(TConexaoSQL &, int, TTransporteNFe *) : d(new Dados) {}
TDistribuicaoNFe::~TDistribuicaoNFe() { delete d; }
bool TDistribuicaoNFe::Baixar(QList<TNFeDeInteresse> *, QString *) { return false; }
QList<TNFeDeInteresse> TDistribuicaoNFe::Listar() const { return {}; }
bool TDistribuicaoNFe::Manifestar(const QString &, TManifestacao, const QString &, QString *) { return false; }
QString TDistribuicaoNFe::BaixarPorChave(const QString &, const QString &, QString *) { return {}; }
int TDistribuicaoNFe::UltimoCStat() const { return 0; }
QString TDistribuicaoNFe::UltimoXMotivo() const { return {}; }
