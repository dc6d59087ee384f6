#pragma once

class QWidget;
class TClientDataSet;
class TConexaoSQL;

// The note whose item is adjusted, as the screen knows it.
struct TNotaDoAjuste
{
    int emprCod = 0;
    int compraCod = 0;
    int fornecCod = 0;    // the header's supplier; 0 when none is chosen
    int tipoDocCod = 34;
};

// "Ajustar Item": asks for the fiscal coding of the items' current row, puts the answer in the
// row and writes it to the staged item, the product and the note's stock movements of that
// product. The row keeps showing what the staged item holds: when that first write fails the row
// goes back to what it was. True when the staged item was written.
class TRepF_AjusteItem final
{
public:
    TRepF_AjusteItem(TClientDataSet &itens, TConexaoSQL &conexao) : m_itens(itens), m_conexao(conexao) {}

    bool Executar(const TNotaDoAjuste &nota, QWidget *parent = nullptr);

private:
    TClientDataSet &m_itens;
    TConexaoSQL &m_conexao;
};
