#pragma once

#include "Money.h"
#include "TClientDataSet.h"

#include <QObject>
#include <QString>
#include <QStringList>

class QWidget;
class TConexaoSQL;
class TItemNotaTela;
class TItemPanel;
class TNumEditBR;
class TProdLista;
struct TProdDados;

// The item panel at work: finding the product, filling the panel from its master data, the
// quantities and the sale prices as fields change, the item checks, and the item list of the
// note (insert, update, edit, delete), writing some product data back on the way.
//
// It listens to the panel's own fields (Enter, leaving a field, value changes); the screen
// calls EditarItem on a double click of the item grid and ExcluirItem from its button.
class TItemNota final : public QObject
{
    Q_OBJECT
public:
    // `conexao` is the screen's own connection, used for the look-ups.
    TItemNota(TItemNotaTela &tela, TItemPanel &panel, TConexaoSQL &conexao, QObject *parent = nullptr);
    ~TItemNota() override;

    // The host connection's mode; mode 3 also searches the registered alternative codes.
    void SetModoConexao(int modo) { m_modoConexao = modo; }

    // --- Finding the product ---
    // The supplier's own code typed in ProdCodDelesLabeledEdit: its product, or on to the search.
    void FornecProdCodTestar();
    // The search of BuscaLabeledEdit: code, bar code, GTIN (and alternative code); on a hit the
    // panel is filled. "Produto não encontrado" otherwise; false then.
    bool Buscar(const QString &texto);
    // Fills the panel from the product master: `prodCod`, else the one already in the panel,
    // else the search text when it is all digits, else the product list's selection. Then the
    // sale price, the bought quantity and the focus for the note's type. False when no product
    // could be read (the message has been shown).
    bool PreencherProd(int prodCod = 0);
    // QtdCompradaNumEditBR = package quantity x package count, cut at 4 decimals.
    void CalculeQtd();
    // The sale price calculation on the panel, with the cost write-back flag.
    void Calcule(bool gravarCusto);

    // --- Checks: true when acceptable; a refusal shows its message once and focuses its field ---
    bool ProdAceito();
    bool EmbQtdAceito();
    bool QtdEmbsAceito();
    bool CustoTotAceito();
    bool NCMAceito();

    // --- The item list ---
    // Enter on the last price field: the checks, then insert or update, then an empty panel.
    void PrecoUltimoEditBRKeyDown();
    bool Inserir();
    bool AtualizarItem();
    // The current row of the item grid into the panel, for alteration.
    void EditarItem();
    // The "Excluir Item" button.
    void ExcluirItem();

    // --- Product data written back ---
    void GravarProd();
    void GravarNCM();

    // --- Clearing ---
    void Zerar();           // the supplier's code, the search text and the product list
    void ZerarProd();       // what came from the product master
    void ZerarItem();       // what was typed for the item; refocuses unless Esc is being handled
    void ZerarCombos();

    // While alive, the screen is handling Esc: the package-count check is off and clearing the
    // item leaves the focus where it is.
    class TEscape final
    {
    public:
        explicit TEscape(TItemNota &item) : m_item(item) { m_item.m_escape = true; }
        ~TEscape() { m_item.m_escape = false; }
        TEscape(const TEscape &) = delete;
        TEscape &operator=(const TEscape &) = delete;

    private:
        TItemNota &m_item;
    };

    // The price edit whose Enter completes the item: the last price table's, or PrecoNumEditBR
    // when there are no price tables.
    TNumEditBR *PrecoUltimoEdit() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ligarCampos();
    bool teclaEnter(QObject *watched);
    void saiuDoCampo(QObject *watched);
    bool podeChecar() const;
    bool recusar(QWidget *campo, void (*mensagem)(const QString &), const QString &texto);
    void focar(QWidget *campo);
    // Where the next item starts: the search for production notes (and, after an item is
    // completed, for returns of leased goods), the supplier's code otherwise.
    void focarInicioItem(bool locacaoTambem);
    int tipo() const;
    int indiceTipo() const;
    int emprCod() const;
    bool ultimoCampoDoItem(const QObject *campo) const;
    void preencherDoMestre(const TProdDados &d);
    void focarPorTipo();
    void CriaCombosGrade(int prodCod);
    void ControlesParaCamposNotaItem();
    void CamposParaControlesNotaItem();
    void espelharPreco(TNumEditBR *origem, TNumEditBR *destino);
    void limpar();

    TItemNotaTela &m_tela;
    TItemPanel &m_panel;
    TConexaoSQL &m_conexao;
    TProdLista *m_prodLista;
    int m_modoConexao = 0;
    bool m_recalcular = true;   // off while the calculation or a load writes the fields
    bool m_carregando = false;  // the panel is being filled or cleared: field events do nothing
    bool m_checando = false;    // a check or the controller itself is moving the focus
    bool m_escape = false;
    bool m_espelhando = false;  // one price edit is copying itself into the other
    QString m_ncmLido;          // the product's NCM as read, so an unchanged NCM is not written
    TBookmark m_itemEditado;
};
