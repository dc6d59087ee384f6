#include "UKelNfeEnviaNFE.h"

#include "Dialogos.h"
#include "TDanfe.h"
#include "TEnvioNFe.h"
#include "TEnvioNFe_Partes.h"
#include "TImpressoraNFe.h"
#include "TNFe_XMLI.h"
#include "TnfeProc.h"

#include <QFileInfo>

namespace {

bool Exibir(const TExibirErro &exibirErro, const QString &erro)
{
    // Empty when the user gave up: nothing to show.
    if (!erro.isEmpty() && exibirErro)
        exibirErro(erro);
    return false;
}

} // namespace

bool KelNFEDevFornecEnviaNFE(TConexaoSQL *, TConexaoSQL &conexao, const TProgressFormPegarTit &progresso,
                             const TExibirErro &exibirErro, int emprCod, int estacaoCod, int compraCod, int finalidade,
                             int tipoCod, QDateTime &dthEmiss, int &nfeNum, QString &chave, QString &protocolo)
{
    TEnvioNFe envio(conexao, emprCod);
    envio.DefinirProgresso(progresso);
    TNFeAutorizada autorizada;
    QString erro;
    if (!envio.Enviar(estacaoCod, compraCod, finalidade, tipoCod, &autorizada, &erro))
        return Exibir(exibirErro, erro);
    dthEmiss = autorizada.dhEmi;
    nfeNum = int(autorizada.numero);
    chave = autorizada.chave;
    protocolo = autorizada.protocolo;
    return true;
}

bool KelNFEEnviaCancNFE(TConexaoSQL *, TConexaoSQL &conexao, const TProgressFormPegarTit &progresso,
                        const TExibirErro &exibirErro, int emprCod, int estacaoCod, int compraCod,
                        const QString &justificativa, int, QDateTime &dthCanc)
{
    TEnvioNFe envio(conexao, emprCod);
    envio.DefinirProgresso(progresso);
    QString erro;
    return envio.Cancelar(estacaoCod, compraCod, justificativa, &dthCanc, &erro) || Exibir(exibirErro, erro);
}

void KelNFEEnviarImpr(TConexaoSQL *, TConexaoSQL &, const TProgressFormPegarTit &progresso,
                      const TExibirErro &exibirErro, int, int, int, const QString &, int, const QString &chave, bool)
{
    if (progresso)
        progresso(QStringLiteral("Imprimindo DANFE..."));
    TImpressoraNFe *impressora = TImpressoraNFe::Atual();
    if (!impressora) {
        Exibir(exibirErro, QStringLiteral("Nenhuma impressora de NF-e foi indicada: o DANFE não foi impresso"));
        return;
    }
    QString erro;
    const QString pasta = EnvioNFe::PastaDaChave(chave, &erro);
    if (pasta.isEmpty()) {
        Exibir(exibirErro, erro);
        return;
    }
    QString arquivo = pasta + chave + QStringLiteral("-procNFe.xml");
    if (!QFileInfo::exists(arquivo)) {
        arquivo = pasta + chave + QStringLiteral("-nfe.xml");
        MensagemAviso(QStringLiteral("A NF-e %1 não tem protocolo de autorização arquivado: o DANFE sai sem protocolo, "
                                     "sem valor fiscal (%2)").arg(chave, arquivo));
    }
    TnfeProc nfe;
    TNFe_XMLI leitor(nfe);
    if (!leitor.ImportarDoArq(arquivo)) {
        Exibir(exibirErro, leitor.Erro());
        return;
    }
    if (!impressora->Imprimir(QStringLiteral("DANFE ") + chave,
                              [&](QPagedPaintDevice &dispositivo, QString *motivo) {
                                  return TDanfe::Desenhar(nfe, dispositivo, motivo);
                              },
                              &erro))
        Exibir(exibirErro, erro);
}
