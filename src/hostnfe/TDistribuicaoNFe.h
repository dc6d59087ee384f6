#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <functional>

class TConexaoSQL;
class TTransporteNFe;

// A document addressed to the company, as filed.
struct TNFeDeInteresse
{
    QString nsu, chave, cnpjEmitente, nomeEmitente;
    QDateTime dhEmi;
    QString valor;              // vNF as in the document
    QString tipo;               // "resumo", "nfe", "evento"
    QString arquivo;            // the filed XML
    bool completo = false;      // the full procNFe is on file
    int tpEvento = 0, nSeqEvento = 0;   // events only
};

// The recipient's manifestation events.
enum class TManifestacao { Ciencia = 210210, Confirmacao = 210200, Desconhecimento = 210220, NaoRealizada = 210240 };

// The national distribution service for the company: fetches what was issued to its CNPJ since
// the last NSU received (kept in config), files each summary, full XML and event in the fiscal
// folder, lists them, sends the recipient's manifestation and fetches one document by key.
class TDistribuicaoNFe
{
public:
    TDistribuicaoNFe(TConexaoSQL &conexao, int emprCod, TTransporteNFe *transporte = nullptr);
    ~TDistribuicaoNFe();

    // New documents since the last NSU; false with erro.
    bool Baixar(QList<TNFeDeInteresse> *novos, QString *erro);
    // Every document on file for the company, newest first.
    QList<TNFeDeInteresse> Listar() const;
    bool Manifestar(const QString &chave, TManifestacao tipo, const QString &justificativa, QString *erro);
    // The full XML of a key into pastaDestino; its path, or empty with erro.
    QString BaixarPorChave(const QString &chave, const QString &pastaDestino, QString *erro);

    int UltimoCStat() const;
    QString UltimoXMotivo() const;

    // What went wrong after a manifestation was registered (the full XML not yet available).
    QString UltimoAviso() const;
    void DefinirProgresso(std::function<void(const QString &titulo)> progresso);
    // Where the documents addressed to the company are filed: <fiscal>/NFe_Dest/.
    static QString PastaDestino(QString *erro);

private:
    struct Dados;
    Dados *d;
};
