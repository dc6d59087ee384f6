#pragma once

#include <QFrame>
#include <QList>

class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QTabWidget;
class TNumEditBR;

// The note header as the clerk types it: company, type, dates, number, supplier, totals,
// transport data and referenced keys, on three tabs, with the confirm and cancel buttons beside
// them. Only the widgets live here; the checks and the saving belong to the screen.
class TEdNotaPanel final : public QFrame
{
    Q_OBJECT

public:
    explicit TEdNotaPanel(QWidget *parent = nullptr);

    // Tabs, in this order.
    enum Aba { AbaNota = 0, AbaTransporte = 1, AbaReferencias = 2 };
    QTabWidget *Abas() const { return m_abas; }

    // "Nota"
    QComboBox *EmprComboBox() const { return m_emprComboBox; }
    QComboBox *DestinEmprComboBox() const { return m_destinEmprComboBox; }
    QComboBox *TipoDocComboBox() const { return m_tipoDocComboBox; }
    QDateEdit *DtDocDtFr() const { return m_dtDocDtFr; }
    QDateEdit *DtSaiDtFr() const { return m_dtSaiDtFr; }
    QLineEdit *HSaiMaskEdit() const { return m_hSaiMaskEdit; }
    TNumEditBR *NDocNumEditBR() const { return m_nDocNumEditBR; }
    TNumEditBR *SerieNumEditBR() const { return m_serieNumEditBR; }
    QComboBox *FornecComboBox() const { return m_fornecComboBox; }
    TNumEditBR *CompraCFOPNumEditBR() const { return m_compraCFOPNumEditBR; }
    QLineEdit *CompraNatOpLabeledEdit() const { return m_compraNatOpLabeledEdit; }

    // "Totais"
    TNumEditBR *TotProdNumEditBR() const { return m_totProdNumEditBR; }
    TNumEditBR *IPITotNumEditBR() const { return m_ipiTotNumEditBR; }
    TNumEditBR *FreteNumEditBR() const { return m_freteNumEditBR; }
    TNumEditBR *OutrasNumEditBR() const { return m_outrasNumEditBR; }
    TNumEditBR *ICMSTotNumEditBR() const { return m_icmsTotNumEditBR; }
    TNumEditBR *ICMSSTTotNumEditBR() const { return m_icmsSTTotNumEditBR; }
    TNumEditBR *FCPTotNumEditBR() const { return m_fcpTotNumEditBR; }
    TNumEditBR *FCPSTTotNumEditBR() const { return m_fcpSTTotNumEditBR; }
    TNumEditBR *DescontoTotNumEditBR() const { return m_descontoTotNumEditBR; }
    TNumEditBR *TotNumEditBR() const { return m_totNumEditBR; }

    // "Transporte"
    QComboBox *FreteModalidadeComboBox() const { return m_freteModalidadeComboBox; }
    QComboBox *TranspFornecComboBox() const { return m_transpFornecComboBox; }
    TNumEditBR *FreteBCValNumEditBR() const { return m_freteBCValNumEditBR; }
    TNumEditBR *FreteICMSNumEditBR() const { return m_freteICMSNumEditBR; }
    TNumEditBR *FreteICMSRetValNumEditBR() const { return m_freteICMSRetValNumEditBR; }
    TNumEditBR *FreteCFOPNumEditBR() const { return m_freteCFOPNumEditBR; }
    QLineEdit *FreteVeiPlacaLabeledEdit() const { return m_freteVeiPlacaLabeledEdit; }
    QLineEdit *FreteVeiUFLabeledEdit() const { return m_freteVeiUFLabeledEdit; }
    QLineEdit *FreteVeiANTTLabeledEdit() const { return m_freteVeiANTTLabeledEdit; }
    QLineEdit *FreteReboque1PlacaLabeledEdit() const { return m_freteReboque1PlacaLabeledEdit; }
    QLineEdit *FreteReboque1UFLabeledEdit() const { return m_freteReboque1UFLabeledEdit; }
    QLineEdit *FreteReboque1ANTTLabeledEdit() const { return m_freteReboque1ANTTLabeledEdit; }
    QLineEdit *FreteReboque2PlacaLabeledEdit() const { return m_freteReboque2PlacaLabeledEdit; }
    QLineEdit *FreteReboque2UFLabeledEdit() const { return m_freteReboque2UFLabeledEdit; }
    QLineEdit *FreteReboque2ANTTLabeledEdit() const { return m_freteReboque2ANTTLabeledEdit; }
    TNumEditBR *FreteVolsQtdNumEditBR() const { return m_freteVolsQtdNumEditBR; }
    QLineEdit *FreteVolsEspecieLabeledEdit() const { return m_freteVolsEspecieLabeledEdit; }
    QLineEdit *FreteVolsMarcaLabeledEdit() const { return m_freteVolsMarcaLabeledEdit; }
    QLineEdit *FreteVolsNumLabeledEdit() const { return m_freteVolsNumLabeledEdit; }
    TNumEditBR *FretePesoLiqNumEditBR() const { return m_fretePesoLiqNumEditBR; }
    TNumEditBR *FretePesoBrutoNumEditBR() const { return m_fretePesoBrutoNumEditBR; }

    // "Referências"
    QLineEdit *NFEChaveRefLabeledEdit() const { return m_chavesRef[0]; }
    QLineEdit *NFEChaveRef2LabeledEdit() const { return m_chavesRef[1]; }
    QLineEdit *NFEChaveRef3LabeledEdit() const { return m_chavesRef[2]; }
    QLineEdit *NFEChaveRef4LabeledEdit() const { return m_chavesRef[3]; }
    QLineEdit *NFEChaveRef5LabeledEdit() const { return m_chavesRef[4]; }
    // The five referenced keys, first to fifth.
    const QList<QLineEdit *> &ChavesRef() const { return m_chavesRef; }
    QPushButton *ListaButton() const { return m_listaButton; }
    // Items from the keys' XML files; the key of one XML file.
    QPushButton *ItensButton() const { return m_itensButton; }
    QPushButton *XMLImportButton() const { return m_xmlImportButton; }

    QPushButton *NotaOkButton() const { return m_notaOkButton; }
    QPushButton *NotaCancButton() const { return m_notaCancButton; }

    // Every typed field in Tab order, across the three tabs (read-only ones included).
    const QList<QWidget *> &Campos() const { return m_campos; }

private:
    QWidget *CriarAbaNota();
    QWidget *CriarNota(QWidget *aba);
    QWidget *CriarTotais(QWidget *aba);
    QWidget *CriarAbaTransporte();
    QWidget *CriarFrete(QWidget *aba);
    QWidget *CriarVeiculos(QWidget *aba);
    QWidget *CriarVolumes(QWidget *aba);
    QWidget *CriarAbaReferencias();
    void EncadearTab();

    QTabWidget *m_abas = nullptr;

    QComboBox *m_emprComboBox = nullptr;
    QComboBox *m_destinEmprComboBox = nullptr;
    QComboBox *m_tipoDocComboBox = nullptr;
    QDateEdit *m_dtDocDtFr = nullptr;
    QDateEdit *m_dtSaiDtFr = nullptr;
    QLineEdit *m_hSaiMaskEdit = nullptr;
    TNumEditBR *m_nDocNumEditBR = nullptr;
    TNumEditBR *m_serieNumEditBR = nullptr;
    QComboBox *m_fornecComboBox = nullptr;
    TNumEditBR *m_compraCFOPNumEditBR = nullptr;
    QLineEdit *m_compraNatOpLabeledEdit = nullptr;

    TNumEditBR *m_totProdNumEditBR = nullptr;
    TNumEditBR *m_ipiTotNumEditBR = nullptr;
    TNumEditBR *m_freteNumEditBR = nullptr;
    TNumEditBR *m_outrasNumEditBR = nullptr;
    TNumEditBR *m_icmsTotNumEditBR = nullptr;
    TNumEditBR *m_icmsSTTotNumEditBR = nullptr;
    TNumEditBR *m_fcpTotNumEditBR = nullptr;
    TNumEditBR *m_fcpSTTotNumEditBR = nullptr;
    TNumEditBR *m_descontoTotNumEditBR = nullptr;
    TNumEditBR *m_totNumEditBR = nullptr;

    QComboBox *m_freteModalidadeComboBox = nullptr;
    QComboBox *m_transpFornecComboBox = nullptr;
    TNumEditBR *m_freteBCValNumEditBR = nullptr;
    TNumEditBR *m_freteICMSNumEditBR = nullptr;
    TNumEditBR *m_freteICMSRetValNumEditBR = nullptr;
    TNumEditBR *m_freteCFOPNumEditBR = nullptr;
    QLineEdit *m_freteVeiPlacaLabeledEdit = nullptr;
    QLineEdit *m_freteVeiUFLabeledEdit = nullptr;
    QLineEdit *m_freteVeiANTTLabeledEdit = nullptr;
    QLineEdit *m_freteReboque1PlacaLabeledEdit = nullptr;
    QLineEdit *m_freteReboque1UFLabeledEdit = nullptr;
    QLineEdit *m_freteReboque1ANTTLabeledEdit = nullptr;
    QLineEdit *m_freteReboque2PlacaLabeledEdit = nullptr;
    QLineEdit *m_freteReboque2UFLabeledEdit = nullptr;
    QLineEdit *m_freteReboque2ANTTLabeledEdit = nullptr;
    TNumEditBR *m_freteVolsQtdNumEditBR = nullptr;
    QLineEdit *m_freteVolsEspecieLabeledEdit = nullptr;
    QLineEdit *m_freteVolsMarcaLabeledEdit = nullptr;
    QLineEdit *m_freteVolsNumLabeledEdit = nullptr;
    TNumEditBR *m_fretePesoLiqNumEditBR = nullptr;
    TNumEditBR *m_fretePesoBrutoNumEditBR = nullptr;

    QList<QLineEdit *> m_chavesRef;
    QPushButton *m_listaButton = nullptr;
    QPushButton *m_itensButton = nullptr;
    QPushButton *m_xmlImportButton = nullptr;

    QPushButton *m_notaOkButton = nullptr;
    QPushButton *m_notaCancButton = nullptr;

    QList<QWidget *> m_campos;
};
