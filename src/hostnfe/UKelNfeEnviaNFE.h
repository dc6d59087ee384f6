#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

class TConexaoSQL;

// The host's callbacks: the progress window's caption and the error display.
using TProgressFormPegarTit = std::function<void(const QString &titulo)>;
using TExibirErro = std::function<void(const QString &mensagem)>;

// The host NF-e library's entry points. The first connection is passed empty, the second is the
// host's current database connection.

// Issues and sends the note's NF-e; on true the four outputs hold what was authorised.
bool KelNFEDevFornecEnviaNFE(TConexaoSQL *conexaoVazia, TConexaoSQL &conexao, const TProgressFormPegarTit &progresso,
                             const TExibirErro &exibirErro, int emprCod, int estacaoCod, int compraCod, int finalidade,
                             int tipoCod, QDateTime &dthEmiss, int &nfeNum, QString &chave, QString &protocolo);

// Sends the cancellation event of the note's NF-e; on true dthCanc holds its registration.
bool KelNFEEnviaCancNFE(TConexaoSQL *conexaoVazia, TConexaoSQL &conexao, const TProgressFormPegarTit &progresso,
                        const TExibirErro &exibirErro, int emprCod, int estacaoCod, int compraCod,
                        const QString &justificativa, int modelo, QDateTime &dthCanc);

// Prints the DANFE of the note's authorised NF-e on the registered printer (TImpressoraNFe).
void KelNFEEnviarImpr(TConexaoSQL *conexaoVazia, TConexaoSQL &conexao, const TProgressFormPegarTit &progresso,
                      const TExibirErro &exibirErro, int emprCod, int estacaoCod, int compraCod, const QString &serie,
                      int nfeNum, const QString &chave, bool flag);
