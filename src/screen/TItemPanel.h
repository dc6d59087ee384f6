#pragma once

#include <QGroupBox>
#include <QList>

class QComboBox;
class QFrame;
class QLineEdit;
class QPushButton;
class QTableView;
class QToolButton;
class QVBoxLayout;
class TNumEditBR;

// The item being typed into a note: product lookup line, quantities and costs, the tax groups
// and, on the right, the sale prices. The price edits of the further price tables and the grade
// combos are added by the screen into PrecosLayout() and GradesLayout(). Only the widgets live
// here; the look-ups, checks and price arithmetic belong to the screen.
class TItemPanel final : public QGroupBox
{
    Q_OBJECT

public:
    explicit TItemPanel(QWidget *parent = nullptr);

    // Product line
    QLineEdit *ProdCodDelesLabeledEdit() const { return m_prodCodDelesLabeledEdit; }
    QLineEdit *BuscaLabeledEdit() const { return m_buscaLabeledEdit; }
    TNumEditBR *ProdCodNumEditBR() const { return m_prodCodNumEditBR; }
    QToolButton *ProdButton() const { return m_prodButton; }
    QLineEdit *ProdDescrLabeledEdit() const { return m_prodDescrLabeledEdit; }
    QComboBox *UnidComboBox() const { return m_unidComboBox; }
    QToolButton *UnidButton() const { return m_unidButton; }
    QComboBox *TribComboBox() const { return m_tribComboBox; }
    QToolButton *TribButton() const { return m_tribButton; }
    QLineEdit *NCMMaskEdit() const { return m_ncmMaskEdit; }
    TNumEditBR *CFOPItemNumEditBR() const { return m_cfopItemNumEditBR; }
    TNumEditBR *CSTNumEditBR() const { return m_cstNumEditBR; }
    TNumEditBR *OrigMercNumEditBR() const { return m_origMercNumEditBR; }

    // Quantities and costs
    TNumEditBR *EmbQtdNumEditBR() const { return m_embQtdNumEditBR; }
    TNumEditBR *QtdEmbsNumEditBR() const { return m_qtdEmbsNumEditBR; }
    TNumEditBR *QtdCompradaNumEditBR() const { return m_qtdCompradaNumEditBR; }
    TNumEditBR *CustoAtualNumEditBR() const { return m_custoAtualNumEditBR; }
    TNumEditBR *CustoTotItemNumEditBR() const { return m_custoTotItemNumEditBR; }
    TNumEditBR *DescontoItemNumEditBR() const { return m_descontoItemNumEditBR; }
    TNumEditBR *pIPINumEditBR() const { return m_pIPINumEditBR; }
    TNumEditBR *vIPINumEditBR() const { return m_vIPINumEditBR; }
    TNumEditBR *OutrasItemNumEditBR() const { return m_outrasItemNumEditBR; }
    TNumEditBR *FreteItemNumEditBR() const { return m_freteItemNumEditBR; }
    TNumEditBR *SeguroItemNumEditBR() const { return m_seguroItemNumEditBR; }

    // ICMS
    TNumEditBR *modBCNumEditBR() const { return m_modBCNumEditBR; }
    TNumEditBR *vBCNumEditBR() const { return m_vBCNumEditBR; }
    TNumEditBR *pICMSNumEditBR() const { return m_pICMSNumEditBR; }
    TNumEditBR *vICMSNumEditBR() const { return m_vICMSNumEditBR; }
    TNumEditBR *pRedBCNumEditBR() const { return m_pRedBCNumEditBR; }
    // ICMS ST
    TNumEditBR *modBCSTNumEditBR() const { return m_modBCSTNumEditBR; }
    TNumEditBR *pMVASTNumEditBR() const { return m_pMVASTNumEditBR; }
    TNumEditBR *pRedBCSTNumEditBR() const { return m_pRedBCSTNumEditBR; }
    TNumEditBR *vBCSTNumEditBR() const { return m_vBCSTNumEditBR; }
    TNumEditBR *pICMSSTNumEditBR() const { return m_pICMSSTNumEditBR; }
    TNumEditBR *vICMSSTNumEditBR() const { return m_vICMSSTNumEditBR; }
    // FCP
    TNumEditBR *vBCFCPNumEditBR() const { return m_vBCFCPNumEditBR; }
    TNumEditBR *pFCPNumEditBR() const { return m_pFCPNumEditBR; }
    TNumEditBR *vFCPNumEditBR() const { return m_vFCPNumEditBR; }
    TNumEditBR *vBCFCPSTNumEditBR() const { return m_vBCFCPSTNumEditBR; }
    TNumEditBR *pFCPSTNumEditBR() const { return m_pFCPSTNumEditBR; }
    TNumEditBR *vFCPSTNumEditBR() const { return m_vFCPSTNumEditBR; }
    // PIS / COFINS
    TNumEditBR *CstPisNumEditBR() const { return m_cstPisNumEditBR; }
    TNumEditBR *pPisNumEditBR() const { return m_pPisNumEditBR; }
    TNumEditBR *vPisNumEditBR() const { return m_vPisNumEditBR; }
    TNumEditBR *CstCofinsNumEditBR() const { return m_cstCofinsNumEditBR; }
    TNumEditBR *pCofinsNumEditBR() const { return m_pCofinsNumEditBR; }
    TNumEditBR *vCofinsNumEditBR() const { return m_vCofinsNumEditBR; }
    // ST retained earlier in the chain
    TNumEditBR *TribIcmsvBCSTRet_NumEditBR() const { return m_tribIcmsvBCSTRet; }
    TNumEditBR *TribIcmspST_NumEditBR() const { return m_tribIcmspST; }
    TNumEditBR *TribIcmsvICMSSubstituto_NumEditBR() const { return m_tribIcmsvICMSSubstituto; }
    TNumEditBR *TribIcmsvICMSSTRet_NumEditBR() const { return m_tribIcmsvICMSSTRet; }

    // Out of the Tab walk, so that Enter moving from field to field never lands on it.
    QPushButton *ExcluirItemButton() const { return m_excluirItemButton; }

    // Prices
    TNumEditBR *CustoNumEditBR() const { return m_custoNumEditBR; }
    TNumEditBR *PrecoAtualNumEditBR() const { return m_precoAtualNumEditBR; }
    TNumEditBR *PrecoPromoNumEditBR() const { return m_precoPromoNumEditBR; }
    TNumEditBR *MargemNumEditBR() const { return m_margemNumEditBR; }
    TNumEditBR *PrecoNumEditBR() const { return m_precoNumEditBR; }
    QWidget *PrecosBox() const { return m_precosBox; }
    QVBoxLayout *PrecosLayout() const { return m_precosLayout; }
    QWidget *GradesBox() const { return m_gradesBox; }
    QVBoxLayout *GradesLayout() const { return m_gradesLayout; }

    // Adds one "caption  edit" line to the price box (one per further price table) and returns the
    // edit, 2 decimals, named `nome`. The caller puts it into the Tab chain.
    TNumEditBR *AdicionarPreco(const QString &nome, const QString &rotulo);
    // Adds one "caption  combo" line to the grade box and returns the combo, named `nome`.
    QComboBox *AdicionarGrade(const QString &nome, const QString &rotulo);

    // The product list that drops down below the search field; hidden until the screen shows it.
    QFrame *ProdPanel() const { return m_prodPanel; }
    QTableView *ProdDBGrid() const { return m_prodDBGrid; }
    // Places the product list right below the search field, as wide as the room allows, raised
    // above the other fields, and shows it.
    void ExibirProdPanel();
    void EsconderProdPanel();

    // The fixed typed fields in Tab order (read-only ones included); dynamic prices and grades
    // come after them.
    const QList<QWidget *> &Campos() const { return m_campos; }

private:
    QWidget *CriarLinhaProduto();
    QWidget *CriarLinhaQuantidades();
    QWidget *CriarImpostos();
    QWidget *CriarPrecos();
    void CriarProdPanel();
    void EncadearTab();

    QLineEdit *m_prodCodDelesLabeledEdit = nullptr;
    QLineEdit *m_buscaLabeledEdit = nullptr;
    TNumEditBR *m_prodCodNumEditBR = nullptr;
    QToolButton *m_prodButton = nullptr;
    QLineEdit *m_prodDescrLabeledEdit = nullptr;
    QComboBox *m_unidComboBox = nullptr;
    QToolButton *m_unidButton = nullptr;
    QComboBox *m_tribComboBox = nullptr;
    QToolButton *m_tribButton = nullptr;
    QLineEdit *m_ncmMaskEdit = nullptr;
    TNumEditBR *m_cfopItemNumEditBR = nullptr;
    TNumEditBR *m_cstNumEditBR = nullptr;
    TNumEditBR *m_origMercNumEditBR = nullptr;

    TNumEditBR *m_embQtdNumEditBR = nullptr;
    TNumEditBR *m_qtdEmbsNumEditBR = nullptr;
    TNumEditBR *m_qtdCompradaNumEditBR = nullptr;
    TNumEditBR *m_custoAtualNumEditBR = nullptr;
    TNumEditBR *m_custoTotItemNumEditBR = nullptr;
    TNumEditBR *m_descontoItemNumEditBR = nullptr;
    TNumEditBR *m_pIPINumEditBR = nullptr;
    TNumEditBR *m_vIPINumEditBR = nullptr;
    TNumEditBR *m_outrasItemNumEditBR = nullptr;
    TNumEditBR *m_freteItemNumEditBR = nullptr;
    TNumEditBR *m_seguroItemNumEditBR = nullptr;

    TNumEditBR *m_modBCNumEditBR = nullptr;
    TNumEditBR *m_vBCNumEditBR = nullptr;
    TNumEditBR *m_pICMSNumEditBR = nullptr;
    TNumEditBR *m_vICMSNumEditBR = nullptr;
    TNumEditBR *m_pRedBCNumEditBR = nullptr;
    TNumEditBR *m_modBCSTNumEditBR = nullptr;
    TNumEditBR *m_pMVASTNumEditBR = nullptr;
    TNumEditBR *m_pRedBCSTNumEditBR = nullptr;
    TNumEditBR *m_vBCSTNumEditBR = nullptr;
    TNumEditBR *m_pICMSSTNumEditBR = nullptr;
    TNumEditBR *m_vICMSSTNumEditBR = nullptr;
    TNumEditBR *m_vBCFCPNumEditBR = nullptr;
    TNumEditBR *m_pFCPNumEditBR = nullptr;
    TNumEditBR *m_vFCPNumEditBR = nullptr;
    TNumEditBR *m_vBCFCPSTNumEditBR = nullptr;
    TNumEditBR *m_pFCPSTNumEditBR = nullptr;
    TNumEditBR *m_vFCPSTNumEditBR = nullptr;
    TNumEditBR *m_cstPisNumEditBR = nullptr;
    TNumEditBR *m_pPisNumEditBR = nullptr;
    TNumEditBR *m_vPisNumEditBR = nullptr;
    TNumEditBR *m_cstCofinsNumEditBR = nullptr;
    TNumEditBR *m_pCofinsNumEditBR = nullptr;
    TNumEditBR *m_vCofinsNumEditBR = nullptr;
    TNumEditBR *m_tribIcmsvBCSTRet = nullptr;
    TNumEditBR *m_tribIcmspST = nullptr;
    TNumEditBR *m_tribIcmsvICMSSubstituto = nullptr;
    TNumEditBR *m_tribIcmsvICMSSTRet = nullptr;
    QPushButton *m_excluirItemButton = nullptr;

    TNumEditBR *m_custoNumEditBR = nullptr;
    TNumEditBR *m_precoAtualNumEditBR = nullptr;
    TNumEditBR *m_precoPromoNumEditBR = nullptr;
    TNumEditBR *m_margemNumEditBR = nullptr;
    TNumEditBR *m_precoNumEditBR = nullptr;
    QWidget *m_precosBox = nullptr;
    QVBoxLayout *m_precosLayout = nullptr;
    QWidget *m_gradesBox = nullptr;
    QVBoxLayout *m_gradesLayout = nullptr;

    QFrame *m_prodPanel = nullptr;
    QTableView *m_prodDBGrid = nullptr;

    QList<QWidget *> m_campos;
};
