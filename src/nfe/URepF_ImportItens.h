#pragma once

#include "TChaveNota.h"
#include "TFornecDBI.h"
#include "UDigitadorItens.h"

#include <QString>
#include <QStringList>

class TConexaoSQL;
class TProgresso;
class TRepF_ImportItensF;

// "&Itens pelo XML": reads the XML of each reference key of the note from the fiscal folder,
// lets the clerk choose items and quantities in the import dialog, and types the chosen items
// into the note's item panel.
class TRepF_ImportItens final
{
public:
    // `nomeArqDanfe` is the host's DANFE file name, the third name looked for; `pastaFiscal` the
    // folder searched with its subfolders.
    TRepF_ImportItens(const TFornec &fornec, const QStringList &chaves, TConexaoSQL &conexao,
                      const QString &pastaFiscal, const QString &nomeArqDanfe, const TTelaNota &tela,
                      TProgresso &andamento);

    // The note being altered, left out when other notes referring to a key are looked for.
    void SetNotaAtual(const TChaveNota &nota) { m_notaAtual = nota; }

    // The dialog, filled from the XML files; on OK the products total and the typing.
    void Executar();
    // The documents of the keys into the dialog; the status tells, a line per key, what was
    // found, and what a careful clerk would want to know about each document.
    void Preencher(TRepF_ImportItensF &dialogo);
    // The header's products total from the destination rows, as the items will sum up.
    void AjustarTots(TRepF_ImportItensF &dialogo);
    void DigitarItens(TRepF_ImportItensF &dialogo);

private:
    QString localizar(const QString &chave, QString *nomeProcurado) const;

    TFornec m_fornec;
    QStringList m_chaves;
    TConexaoSQL &m_conexao;
    QString m_pastaFiscal;
    QString m_nomeArqDanfe;
    TTelaNota m_tela;
    TProgresso &m_andamento;
    TChaveNota m_notaAtual;
};
