#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

class TConexaoSQL;
class TCertificadoA1;
class TnfeProc;

// What an issued NF-e left behind.
struct TNFeEmitida
{
    qint64 numero = 0;
    QString chave;                   // 44 characters
    QString arquivo;                 // <fiscal folder>/NFe_Said/yyyy/mm/<key>-nfe.xml
    QDateTime dhEmi;
};

// How to issue: normally, or in contingency at SVC-AN (tpEmis 6) / SVC-RS (7) with when it
// began and why (15 to 256 characters); the key changes with tpEmis.
struct TOpcoesEmissao
{
    int tpEmis = 1;
    QDateTime dhCont;
    QString xJust;
    std::function<void(const QString &titulo)> progresso;   // "Gerando NF-e...", "Assinando..."
};

// Issues the NF-e of one note of `compra`: checks what the document needs, numbers it (a number
// per company and series that is never handed out twice), builds it from the database,
// validates it against the schemas, signs it with the company's certificate and files it in the
// fiscal folder, keeping nfe_num and nfe_chave on the note. Nothing is sent.
class TEmissorNFe
{
public:
    explicit TEmissorNFe(TConexaoSQL &conexao);

    // finalidade: finNFe (1 normal, 2 complementary, 4 return); tipoCod: the note's type number.
    // certificado: the company's, already opened (null opens the one OrigemCertificado names).
    // False with erro (one Portuguese message naming what to fix and where) when refused or when
    // something failed; a refusal found before numbering changes nothing.
    bool Emitir(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod,
                const TCertificadoA1 *certificado, TNFeEmitida *emitida, QString *erro,
                const TOpcoesEmissao &opcoes = {});

    // The same document, built and checked but neither numbered, signed nor stored: for previews
    // and the benchmark. The number is the note's own when it has one, else 1.
    bool Montar(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod, TnfeProc *nfe,
                QString *erro);

private:
    TConexaoSQL &m_conexao;
};

// The purpose (finNFe) of a note's type number: 35, 38, 41 -> 4; 39 -> 2; others 1.
int FinalidadeDoTipo(int tipoCod);
