#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

class QPagedPaintDevice;
class TConexaoSQL;

// One correction letter of an NF-e as nfe_corr keeps it (protocolo empty: not registered yet).
struct TCartaCorrecaoNFe
{
    int seq = 0;
    QString texto, protocolo, descricao;
    QDateTime dthEnv;
};

// The correction letter's print-out: one A4 page with the company, the NF-e, the letter and the
// conditions of use.
namespace TDacce {

struct TFolha
{
    QString razao, cnpj, ie, endereco;
    QString chave;
    TCartaCorrecaoNFe carta;
};

bool Desenhar(const TFolha &folha, QPagedPaintDevice &dispositivo, QString *erro);
// The letters of a key, by sequence; false with erro when the database fails.
bool Cartas(TConexaoSQL &conexao, int emprCod, const QString &chave, QList<TCartaCorrecaoNFe> *cartas, QString *erro);
// The registered letter `seq` of a key on the registered printer (TImpressoraNFe::Atual());
// false with erro, empty when the user gave up.
bool Imprimir(TConexaoSQL &conexao, int emprCod, const QString &chave, int seq, QString *erro);

} // namespace TDacce
