#include "AvisosImportacao.h"

#include "ChaveNFe.h"
#include "TNfeChaveUsoDBI.h"
#include "TnfeProc.h"

QStringList AvisosImportacao(TConexaoSQL &conexao, int emprCod, const TnfeProc &documento, const TChaveNota &notaAtual)
{
    QStringList avisos;
    const QString chave = documento.chave.trimmed();
    const QString nfe = QStringLiteral("NF-e %1 (chave %2): ").arg(documento.ide.nNF).arg(chave);
    if (!ChaveNFe::DigitoConfere(chave))
        avisos << nfe + QStringLiteral("o dígito verificador da chave não confere");

    TNfeChaveUsoDBI dbi(conexao);
    const auto cnpj = dbi.CnpjEmpresa(emprCod);
    const TPess_Dest &dest = documento.destinatario;
    const QString destDoc = (dest.CNPJ.isEmpty() ? dest.CPF : dest.CNPJ).trimmed();
    if (!cnpj)
        avisos << nfe + QStringLiteral("não foi possível ler o CNPJ da empresa: ") + dbi.Erro();
    else if (!cnpj->isEmpty() && destDoc.compare(*cnpj, Qt::CaseInsensitive) != 0)
        avisos << nfe + QStringLiteral("o destinatário (%1) não é a empresa da nota (CNPJ %2)")
                            .arg(destDoc.isEmpty() ? QStringLiteral("sem CNPJ ou CPF") : destDoc, *cnpj);

    if (chave.isEmpty())
        return avisos;
    const auto notas = dbi.NotasComChave(emprCod, chave, notaAtual);
    if (!notas) {
        avisos << nfe + QStringLiteral("não foi possível procurar outras notas com esta chave: ") + dbi.Erro();
        return avisos;
    }
    for (const TNotaDaChave &n : *notas)
        avisos << nfe + (n.importada ? QStringLiteral("a nota %1 já foi importada deste XML")
                                     : QStringLiteral("a nota %1 já se refere a esta chave"))
                            .arg(n.chave.DocStr());
    return avisos;
}
