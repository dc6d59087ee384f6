#include "TBaixaNFePorChaveSefaz.h"

#include "Contexto.h"
#include "TConexaoSQL.h"
#include "TDistribuicaoNFe.h"

QString TBaixaNFePorChaveSefaz::Baixar(const QString &chave, const QString &pastaDestino, QString &erro)
{
    TConexaoSQL conexao;
    TDistribuicaoNFe distribuicao(conexao, Contexto::Atual().empresa);
    return distribuicao.BaixarPorChave(chave, pastaDestino, &erro);
}

void TBaixaNFePorChaveSefaz::Registrar()
{
    static TBaixaNFePorChaveSefaz baixa;
    TBaixaNFePorChave::Definir(&baixa);
}
