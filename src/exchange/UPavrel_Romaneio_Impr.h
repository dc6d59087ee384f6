#pragma once

#include "TConexaoSQL.h"
#include "TRomaneio_DBI.h"

#include <QString>
#include <QStringList>

class TImpressora;
class TSelecaoImpressora;

// The packing list of a note: its staged items (order, product code, quantity, description)
// under a heading with the note's dates and state, on the host's line printer.
class TPavrel_Romaneio_Impr final
{
public:
    // The database, the station, the user and the password come from the host context.
    TPavrel_Romaneio_Impr(int emprCod, int compraCod, const QString &database, int estacao, const QString &usuario,
                          const QString &senha);

    // Asks the printer and the copies, reads the note, prints. False when cancelled or failed.
    bool Execute(TSelecaoImpressora &selecao);

    // The three reads; each shows its message once when it fails.
    bool PegarCabec();
    bool PegarConfig();
    bool PegarItens();
    bool Ler() { return PegarCabec() && PegarConfig() && PegarItens(); }

    // The documents, one per copy, once the reads are done.
    void Montar(TImpressora &impressora, int copias) const;

    QString GetRegStr(const QString &ordem, const QString &codigo, const QString &qtd, const QString &descricao) const;
    QString LinhaCabec() const;
    QString CabecColunas() const;
    QString Titulo() const;
    // An item's lines: the first with its order, code and quantity, the rest with the description.
    QStringList LinhasItem(const TTavro_Romaneio_Item &item) const;

    TTavro_Romaneio_Item_List &Itens() { return m_itens; }
    bool PrintOrder() const { return m_printOrder; }

private:
    int m_emprCod;
    int m_compraCod;
    int m_estacao;
    TConexaoSQL m_conexao;
    TRomaneio m_cabec;
    TTavro_Romaneio_Item_List m_itens;
    bool m_printOrder = true;
};
