#include "TEnvioNFe.h"

struct TEnvioNFe::Dados
{
    TRetornoNFe retorno;
};

TEnvioNFe::TEnvioNFe(TConexaoSQL &, int, TTransporteNFe *) : d(new Dados) {}
TEnvioNFe::~TEnvioNFe() { delete d; }
void TEnvioNFe::DefinirProgresso(TProgresso) {}
bool TEnvioNFe::Status(QString *) { return false; }
bool TEnvioNFe::Enviar(int, int, int, int, TNFeAutorizada *, QString *) { return false; }
bool TEnvioNFe::Cancelar(int, int, const QString &, QDateTime *, QString *) { return false; }
bool TEnvioNFe::CartaCorrecao(const QString &, int, const QString &, const QString &, int *, QString *) { return false; }
TRetornoNFe TEnvioNFe::UltimoRetorno() const { return d->retorno; }
