#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

class TConexaoSQL;
class TTransporteNFe;

// What the authority said last (for the commands, which print it).
struct TRetornoNFe
{
    int cStat = 0;
    QString xMotivo;
};

// A note's NF-e once authorised.
struct TNFeAutorizada
{
    QDateTime dhEmi;
    qint64 numero = 0;
    QString chave, protocolo;
    QString arquivo;            // the filed nfeProc
};

// The NF-e work of one company against the authority: issue and send a note (never twice),
// cancel it, correction letters, the service's status. Reads and writes the note's NF-e columns
// and files every document in the fiscal folder. Progress goes to the progress callback; a
// question (contingency) goes through the host's dialogs.
class TEnvioNFe
{
public:
    using TProgresso = std::function<void(const QString &titulo)>;

    // transporte null: the real SOAP transport with the company's certificate.
    TEnvioNFe(TConexaoSQL &conexao, int emprCod, TTransporteNFe *transporte = nullptr);
    ~TEnvioNFe();
    void DefinirProgresso(TProgresso progresso);

    // Each: false with erro (one Portuguese message: the authority's code and reason for a
    // rejection, or what failed) and the note unchanged but for what the authority already has.
    bool Status(QString *erro);
    bool Enviar(int estacaoCod, int compraCod, int finalidade, int tipoCod, TNFeAutorizada *autorizada, QString *erro);
    bool Cancelar(int estacaoCod, int compraCod, const QString &justificativa, QDateTime *dhCanc, QString *erro);
    // A correction letter for the NF-e of `chave`; seq gets its sequence number (1..20).
    bool CartaCorrecao(const QString &chave, int docTipo, const QString &descricao, const QString &texto, int *seq,
                       QString *erro);

    TRetornoNFe UltimoRetorno() const;

private:
    struct Dados;
    class TEnvio;
    Dados *d;
};
