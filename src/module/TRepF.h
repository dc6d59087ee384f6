#pragma once

#include "TChildMDIBasF.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TItemNotaTela.h"
#include "TRepD.h"
#include "TTabPrecoList.h"
#include "UDigitadorItens.h"

#include <QAction>
#include <QHash>
#include <QScopeGuard>
#include <QList>

#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;
class QToolBar;
class QToolButton;
class TAndamento;
class TAcoesNota;
class TCabecNota;
class TEdNotaPanel;
class TItemNota;
class TItemPanel;
class TNumEditBR;
class TTotaisBar;

// The manual-notes screen: the note list with its filters, the note header panel, the item
// panel with its grid and totals, and the actions on the current note.
class TRepF final : public TChildMDIBasF, public TItemNotaTela
{
    Q_OBJECT
    // For hosts that load the module at run time and wait for the screen to be ready.
    Q_PROPERTY(bool listaCarregada READ ListaFoiCarregada NOTIFY ListaCarregada)
    Q_PROPERTY(bool itensCarregados READ ItensDaNotaAtualNaTela NOTIFY ItensCarregados)
public:
    explicit TRepF(QWidget *parent = nullptr);
    ~TRepF() override;

    static QString Nome() { return QStringLiteral("Pavrel"); }

    TDataSetState CabecState() const override { return m_cabecState; }
    TDataSetState ItemState() const override { return m_itemState; }
    void SetCabecState(TDataSetState estado);
    void SetItemState(TDataSetState estado) override;
    QString TextoCaption() const;

    // The type of the note on the screen: the combo while the header panel is shown,
    // otherwise the current list row.
    int TipoDocSelecionado() const override;
    bool NotaAtualBaixada() const override;

    bool ProducCustoExige() const override { return m_producCustoExige; }
    bool IPISomar() const override { return m_ipiSomar; }

    // The list filter as the controls set it.
    TFiltroNotas FiltroDosControles() const;
    bool CarregarNotas();

    TRepD &RepD() { return *m_repD; }
    TEdNotaPanel *EdNotaPanel() const { return m_edNotaPanel; }
    TItemPanel *ItemPanel() const { return m_itemPanel; }
    TAndamento &Andamento() { return *m_andamento; }
    QComboBox *TipoDocComboBox() const;
    QLabel *TipoDocLabel() const { return m_tipoDocLabel; }
    const QList<TNumEditBR *> &PrecoEdits() const override { return m_precoEdits; }
    const QList<QComboBox *> &GradeCombos() const override { return m_gradeCombos; }
    QAction *Acao(const QString &nome) const { return m_acoes.value(nome); }

    // Sums the items of the open note into the totals bar, coloured by whether they agree with
    // the header.
    void AtualizarTotais();
    // The items of the current note of the list, unless they are already on the screen.
    void CarregarItensDaNota();
    bool ListaFoiCarregada() const { return m_listaCarregada; }
    // The items on the screen are those of the list's current note (none when the list is empty).
    bool ItensDaNotaAtualNaTela() const;

    void ExibirMenu();
    void EsconderMenu();
    // Runs when the screen is about to close: price rows left without a product go away.
    void ApagarPrecoZerado();
    TCabecNota &Cabec() { return *m_cabec; }
    void NotaInsActExecute();
    void AltActExecute();
    // The confirm button of the note panel: the checks, then the insert or the update.
    bool ConfirmarNota();
    // Leaves the header editing without saving.
    void CancelarEdicaoNota();
    // "&Lista": the five reference keys through the list dialog, compacted even on cancel.
    void ListaButtonClick();

    // Item entry (TRepF_Itens.cpp): the item panel's controller and what it asks of the screen.
    TItemNota &ItemNota() { return *m_itemNota; }
    bool EntraItemAceito() override;
    bool TotProdAceito() override;
    bool CabecParaItemAceito() override;
    int FornecCodSelecionado() const override;
    int NotaEmprCod() const override;
    int NotaEstacaoCod() const override;
    const TTabPrecoList &TabPrecos() const override { return m_tabPrecoList; }
    bool NotaPanelVisivel() const override;
    QAbstractButton *NotaOkButton() const override;
    QAbstractButton *NotaCancButton() const override;
    QAbstractItemView *ItensGrid() const override;
    TClientDataSet &ItensNota() override;
    // The parts of the screen that imported items are typed into.
    TTelaNota TelaNota();

Q_SIGNALS:
    // The note list has been loaded for the first time (hosts that take pictures wait for it).
    void ListaCarregada();
    // The items of the current note have been put on the screen.
    void ItensCarregados();

protected:
    void ShowTimerTimer() override;
    bool FormKeyPress(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lerConfiguracao();
    void criarAcoes();
    QWidget *criarFiltros();
    void montarTela();
    void PrepEmprComboBox();
    void PreencherFornec();
    void PreencherUnid();
    void PreencherTrib();
    void criarPrecoEdits();
    void criarGradeCombos();
    void pegarProcsImpressora();
    void TipoDocComboBoxChange(int indice);
    void AjustarNumeroPorTipo(int indice);
    void AbrirEdicaoNota(TDataSetState estado);
    void FecharEdicaoNota();
    void AposRolarNotas();
    void AtualizarAcoes();
    void CriarAcoesNota();
    void CriarItemNota();
    // Items and the reference key from XML files (TRepF_XML.cpp).
    void CriarBotoesXML();
    void ItensButtonClick();
    void XMLImportButtonClick();
    // Opens a register behind an item field, then refreshes the list that shows it.
    void AbrirCadastro(const QString &form, const QString &acao);
    // The Tabelas menu: the company and supplier registers, then the lists that show them again;
    // the current company's certificate.
    void CriarAcoesTabelas();
    void AbrirTabela(const QString &form, const QString &acao);
    void AbrirCertificado();
    // Tax adjustments of the note's items (TRepF_ICMSUFDest.cpp, TRepF_AjusteItem.cpp) and the
    // inputs its production consumes (TRepF_Insumos.cpp); wired in CriarAjustes.
    void CriarAjustes();
    void AjustarICMSUFDestClick();
    void AjustarItemClick();
    void InsumosItemExecute();
    void InsumosNotaExecute();
    // The exchange file of all notes (TRepF_ExpImp.cpp), the packing list (TRepF_Romaneio.cpp),
    // the additional information (TRepF_AltInfo.cpp) and the labels (TRepF_Etiquetas.cpp); wired
    // in CriarTrocaEImpressao.
    void CriarTrocaEImpressao();
    void ExportarComprasExecute();
    void ImportarComprasExecute();
    void RomaneioImprExecute();
    void AltInfoExecute();
    void EtiqExecute();
    // The NF-e actions (TRepF_NFe.cpp).
    void NFEEnviarExecute();
    void NFECancExecute();
    void NFEImprExecute();
    void NfeCorrExecute();
    // Disables the action while the returned guard lives, and enables it again however it ends.
    auto DesabilitarEnquanto(const QString &acao) const
    {
        QAction *a = Acao(acao);
        if (a)
            a->setEnabled(false);
        return qScopeGuard([a] {
            if (a)
                a->setEnabled(true);
        });
    }
    bool ponteiroNoMenu() const;

    bool m_producCustoExige = true;
    bool m_ipiSomar = true;
    TDataSetState m_cabecState = TDataSetState::Inactive;
    TDataSetState m_itemState = TDataSetState::Inactive;
    int m_tipoIndiceAnterior = 0;
    QString m_itensDe;          // key of the note whose items are on the screen
    bool m_listaCarregada = false;

    TConexaoSQL m_conexao;
    TTabPrecoList m_tabPrecoList;
    TRepD *m_repD = nullptr;
    TCabecNota *m_cabec = nullptr;
    std::unique_ptr<TAcoesNota> m_acoesNota;
    std::unique_ptr<TAndamento> m_andamento;

    QHash<QString, QAction *> m_acoes;
    QToolBar *m_toolBar = nullptr;
    QToolButton *m_tarefasButton = nullptr;
    QFrame *m_menuPanel = nullptr;
    QWidget *m_painelCentral = nullptr;
    QWidget *m_filtros = nullptr;

    QDateEdit *m_dateTimePicker1 = nullptr;
    QDateEdit *m_dateTimePicker2 = nullptr;
    QCheckBox *m_consideraDatas = nullptr;
    QComboBox *m_fornecFiltro = nullptr;
    QComboBox *m_canceladosFiltro = nullptr;
    TNumEditBR *m_ndocPos = nullptr;
    QComboBox *m_origDoc = nullptr;

    QTableView *m_notasGrid = nullptr;
    TEdNotaPanel *m_edNotaPanel = nullptr;
    TItemPanel *m_itemPanel = nullptr;
    QLabel *m_tipoDocLabel = nullptr;
    QTableView *m_itensGrid = nullptr;
    QPushButton *m_ajustarItemButton = nullptr;
    QPushButton *m_ajustarICMSUFDestButton = nullptr;
    TTotaisBar *m_totaisBar = nullptr;
    QList<TNumEditBR *> m_precoEdits;
    QList<QComboBox *> m_gradeCombos;

    QFrame *m_andamentoPanel = nullptr;
    QProgressBar *m_andamentoGauge = nullptr;
    QLabel *m_andamentoLabel = nullptr;
    // Last, so that it goes first: its field events must not outlive the screen's parts.
    std::unique_ptr<TItemNota> m_itemNota;

    friend class TRepF_KeyDown_F6;
};
