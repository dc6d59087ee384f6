#include "TRepF.h"

#include "Config.h"
#include "Contexto.h"
#include "Debug.h"
#include "Dialogos.h"
#include "ImpressoraFiscal.h"
#include "TAcoesNota.h"
#include "TAndamento.h"
#include "TCabecNota.h"
#include "TConexD.h"
#include "TConsultasDBI.h"
#include "TEdNotaPanel.h"
#include "TItemNota.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TProgresso.h"
#include "TRepF_KeyDown_F6.h"
#include "TRepTotais.h"
#include "TTotaisBar.h"
#include "TClientManager.h"
#include "TextosHost.h"
#include "UNfeChavesRefListaExec.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCursor>
#include <QDateEdit>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>

TRepF::TRepF(QWidget *parent) : TChildMDIBasF(parent)
{
    setObjectName(QStringLiteral("RepF"));
    setWindowTitle(Nome());
    lerConfiguracao();
    criarAcoes();

    QString erro;
    if (!m_tabPrecoList.CarregarDoDB(TConexD::Conexao(), &erro))
        MensagemErro(QStringLiteral("Erro lendo as tabelas de preço: ") + erro);
    m_conexao.PegarDados(TConexD::Conexao());
    m_repD = new TRepD(m_conexao, this);
    m_repD->SetTabPrecos(m_tabPrecoList);
    montarTela();
    m_canceladosFiltro->setCurrentIndex(1);

    const TFiltroNotas inicial = TFiltroNotas::Inicial(Contexto::Atual().Hoje());
    m_dateTimePicker1->setDate(inicial.de);
    m_dateTimePicker2->setDate(inicial.ate);

    PrepEmprComboBox();
    m_edNotaPanel->TipoDocComboBox()->addItems(TipoDoc::TextosCombo());
    connect(m_edNotaPanel->TipoDocComboBox(), &QComboBox::currentIndexChanged, this, &TRepF::TipoDocComboBoxChange);
    connect(m_edNotaPanel->NotaCancButton(), &QAbstractButton::clicked, this, &TRepF::CancelarEdicaoNota);
    connect(m_edNotaPanel->ListaButton(), &QAbstractButton::clicked, this, &TRepF::ListaButtonClick);
    connect(m_edNotaPanel->NotaOkButton(), &QAbstractButton::clicked, this, [this] {
        // A check that refused as the focus left its field pulled the focus back there: the
        // click that moved it does not confirm as well.
        if (m_edNotaPanel->focusWidget() == m_edNotaPanel->NotaOkButton())
            ConfirmarNota();
    });
    m_cabec = new TCabecNota(m_edNotaPanel, m_repD->Notas(), m_conexao, this);
    m_cabec->SetIPISomar(m_ipiSomar);
    connect(m_acoes.value(QStringLiteral("NotaInsAct")), &QAction::triggered, this, &TRepF::NotaInsActExecute);
    connect(m_acoes.value(QStringLiteral("AltAct")), &QAction::triggered, this, &TRepF::AltActExecute);
    CriarAcoesNota();

    SetCabecState(TDataSetState::Browse);
    SetItemState(TDataSetState::Browse);
    PreencherFornec();
    PreencherUnid();
    PreencherTrib();
    criarPrecoEdits();
    criarGradeCombos();
    CriarItemNota();
    CriarBotoesXML();
    CriarAjustes();
    CriarTrocaEImpressao();
    pegarProcsImpressora();
    m_andamento = std::make_unique<TAndamento>(m_andamentoPanel, m_andamentoGauge, m_andamentoLabel);

    connect(&m_repD->Notas(), &TClientDataSet::AfterScroll, this, &TRepF::AposRolarNotas);
    // One item typed or removed changes the sums; a whole list being loaded is summed once, after.
    const auto itemMudou = [this] {
        if (!m_repD->Itens().ControlsDisabled())
            AtualizarTotais();
    };
    connect(&m_repD->Itens(), &TClientDataSet::AfterPost, this, itemMudou);
    connect(&m_repD->Itens(), &TClientDataSet::AfterDelete, this, itemMudou);
    TRepF_KeyDown_F6::Exec(*this, false);
    AtualizarAcoes();
}

TRepF::~TRepF() = default;

void TRepF::lerConfiguracao()
{
    TConexaoSQL &host = TConexD::Conexao();
    m_producCustoExige = Config::LigadoSalvoN(host, QStringLiteral("REP_PRODUC_CUSTO_EXIGE"));
    m_ipiSomar = Config::LigadoSalvoN(host, QStringLiteral("REP_IPI_SOMAR"));
}

void TRepF::pegarProcsImpressora()
{
    QString erro;
    if (!ImpressoraFiscal::PegarProcs(&erro))
        MensagemErro(erro);
}

void TRepF::SetCabecState(TDataSetState estado)
{
    m_cabecState = estado;
    setWindowTitle(TextoCaption());
    AtualizarAcoes();
}

void TRepF::SetItemState(TDataSetState estado)
{
    m_itemState = estado;
    m_itemPanel->setTitle(DataSetStateToString(estado, QStringLiteral("Item"), 2));
}

QString TRepF::TextoCaption() const
{
    return DataSetStateToString(m_cabecState, Nome(), 2);
}

QComboBox *TRepF::TipoDocComboBox() const
{
    return m_edNotaPanel->TipoDocComboBox();
}

int TRepF::TipoDocSelecionado() const
{
    if (m_edNotaPanel->isVisible())
        return TipoDoc::CodigoDoIndice(TipoDocComboBox()->currentIndex());
    TClientDataSet &notas = m_repD->Notas();
    if (notas.IsEmpty())
        return TipoDoc::Entrada;
    return notas.FieldByName(QStringLiteral("TIPO_cod")).AsInteger();
}

bool TRepF::NotaAtualBaixada() const
{
    TClientDataSet &notas = m_repD->Notas();
    return !notas.IsEmpty() && notas.FieldByName(QStringLiteral("BAIXADO")).AsBoolean();
}

TFiltroNotas TRepF::FiltroDosControles() const
{
    TFiltroNotas filtro;
    filtro.considerarDatas = m_consideraDatas->isChecked();
    filtro.de = m_dateTimePicker1->date();
    filtro.ate = m_dateTimePicker2->date();
    filtro.fornecCod = m_fornecFiltro->currentIndex() > 0 ? m_fornecFiltro->currentData().toInt() : 0;
    filtro.canceladosIndice = qMax(0, m_canceladosFiltro->currentIndex());
    filtro.ndoc = int(m_ndocPos->Value());
    filtro.origemIndice = qMax(0, m_origDoc->currentIndex());
    return filtro;
}

bool TRepF::CarregarNotas()
{
    QAction *consultar = m_acoes.value(QStringLiteral("ConsultarAction"));
    consultar->setEnabled(false);
    const bool ok = m_repD->CarregarNotas(FiltroDosControles());
    consultar->setEnabled(true);
    AposRolarNotas();
    return ok;
}

void TRepF::ShowTimerTimer()
{
    TProgresso::Janela().Exibir(QStringLiteral("Pavrel..."), 0);
    CarregarNotas();
    // The list takes a good share of the height; the item panel and its grid the rest.
    auto *splitter = static_cast<QSplitter *>(m_painelCentral);
    const int altura = splitter->height();
    splitter->setSizes({altura * 11 / 20, altura - altura * 11 / 20});
    TProgresso::Janela().Fechar();
    m_listaCarregada = true;
    Q_EMIT ListaCarregada();
}

// What depends on the current note follows the list's cursor.
void TRepF::AposRolarNotas()
{
    if (!m_edNotaPanel->isVisible()) {
        // While browsing, the type shown is the current note's.
        const int indice = TipoDoc::IndiceDoCodigo(TipoDocSelecionado());
        if (indice >= 0) {
            const QSignalBlocker bloqueio(TipoDocComboBox());
            TipoDocComboBox()->setCurrentIndex(indice);
            m_tipoIndiceAnterior = indice;
        }
        TRepF_KeyDown_F6::Exec(*this, false);
        CarregarItensDaNota();
    }
    AtualizarAcoes();
}

void TRepF::CarregarItensDaNota()
{
    const std::optional<TNotaLinha> nota = m_repD->NotaAtual();
    const QString doc = nota ? nota->chave.DocStr() : QString();
    if (doc == m_itensDe)
        return;
    m_itensDe = doc;
    if (!nota)
        m_repD->Itens().EmptyDataSet();
    else
        m_repD->CarregarItens(nota->chave, m_andamento.get());
    m_andamento->Fechar();
    AtualizarTotais();
    Q_EMIT ItensCarregados();
}

bool TRepF::ItensDaNotaAtualNaTela() const
{
    const std::optional<TNotaLinha> nota = m_repD->NotaAtual();
    return m_itensDe == (nota ? nota->chave.DocStr() : QString());
}

void TRepF::AtualizarTotais()
{
    TRepTotais totais;
    totais.PegarDoDataSet(m_repD->Itens(), m_ipiSomar);
    TTotaisBar &barra = *m_totaisBar;
    barra.SetTotProd(totais.CustoTot);
    barra.SetDesconto(totais.Desconto);
    barra.SetICMS(totais.ICMS);
    barra.SetICMSST(totais.ICMSSub);
    barra.SetFCP(totais.FCP);
    barra.SetFCPST(totais.FCPST);
    barra.SetIPI(totais.IPI);
    barra.SetOutras(totais.Outras);
    barra.SetFrete(totais.Frete);
    barra.SetSeguro(totais.Seguro);
    barra.SetTot(totais.Total);
    const int itens = m_repD->Itens().RecordCount();
    barra.SetNItens(itens);
    // The items agree with the header when the products match to the cent and the total within
    // the tolerance of posting; the header is the one being typed, else the list's.
    Money totProds;
    Money tot;
    if (m_edNotaPanel->isVisible()) {
        totProds = m_edNotaPanel->TotProdNumEditBR()->AsMoney();
        tot = m_edNotaPanel->TotNumEditBR()->AsMoney();
    } else if (!m_repD->Notas().IsEmpty()) {
        totProds = m_repD->Notas().FieldByName(QStringLiteral("TOT_PRODS")).AsMoney();
        tot = m_repD->Notas().FieldByName(QStringLiteral("TOT")).AsMoney();
    }
    if (itens == 0)
        barra.SetNeutra();
    else
        barra.SetConcorda(totais.CustoTotAceito(totProds) && totais.TotalAceito(tot));
}

// Actions whose work is not there yet stay visible and disabled.
void TRepF::AtualizarAcoes()
{
    static const QStringList prontas = {QStringLiteral("ConsultarAction"), QStringLiteral("NotaInsAct"),
                                        QStringLiteral("AltAct"), QStringLiteral("BaixarAct"),
                                        QStringLiteral("CancAct"), QStringLiteral("DesbaixarAct"),
                                        QStringLiteral("NotaExportAct"), QStringLiteral("NFEDeInteresseAct"),
                                        QStringLiteral("EmprCadAct"), QStringLiteral("FornecCadAct"),
                                        QStringLiteral("CertificadoAct"), QStringLiteral("AjusteAct"),
                                        QStringLiteral("EstoInsumosItemAct"), QStringLiteral("EstoInsumosNotaAct"),
                                        QStringLiteral("ExportarComprasAct"), QStringLiteral("ImportarComprasAct"),
                                        QStringLiteral("RomaneioImprAct"), QStringLiteral("AltInfoAct"),
                                        QStringLiteral("EtiqAct"), QStringLiteral("NFEEnviarAct"),
                                        QStringLiteral("NFECancAct"), QStringLiteral("NFEImprAct"),
                                        QStringLiteral("NfeCorrAct")};
    const bool navegando = m_cabecState == TDataSetState::Browse;
    for (auto it = m_acoes.cbegin(); it != m_acoes.cend(); ++it)
        it.value()->setEnabled(navegando && prontas.contains(it.key()));
    // Actions on the current note need one.
    if (navegando && m_repD->Notas().IsEmpty()) {
        for (const char *nome : {"AltAct", "BaixarAct", "CancAct"})
            m_acoes.value(QLatin1String(nome))->setEnabled(false);
    }
}

void TRepF::TipoDocComboBoxChange(int indice)
{
    QComboBox *combo = TipoDocComboBox();
    if (NotaAtualBaixada() && m_cabecState != TDataSetState::Insert) {
        const QSignalBlocker bloqueio(combo);
        combo->setCurrentIndex(m_tipoIndiceAnterior);
        return;
    }
    m_tipoIndiceAnterior = indice;
    AjustarNumeroPorTipo(indice);
    TRepF_KeyDown_F6::Exec(*this, false);
}

void TRepF::AjustarNumeroPorTipo(int indice)
{
    TNumEditBR *ndoc = m_edNotaPanel->NDocNumEditBR();
    TNumEditBR *serie = m_edNotaPanel->SerieNumEditBR();
    if (indice != 0) {
        // Such a document takes its number from its electronic invoice.
        ndoc->SetValue(0);
        ndoc->SetReadOnlyLook(true);
        serie->SetValue(1);
        serie->SetReadOnlyLook(true);
    } else {
        ndoc->SetReadOnlyLook(false);
        ndoc->setFocusPolicy(Qt::StrongFocus);
        serie->SetReadOnlyLook(false);
    }
}

void TRepF::AbrirEdicaoNota(TDataSetState estado)
{
    SetCabecState(estado);
    SetItemState(TDataSetState::Insert);
    m_tipoIndiceAnterior = qMax(0, TipoDocComboBox()->currentIndex());
    AjustarNumeroPorTipo(m_tipoIndiceAnterior);
    // While a note is typed the screen is the note's: the list and its filters step aside.
    m_notasGrid->hide();
    m_filtros->hide();
    m_edNotaPanel->show();
    m_itemPanel->show();
    m_tipoDocLabel->show();
    TRepF_KeyDown_F6::Exec(*this, false);
    m_edNotaPanel->Campos().first()->setFocus();
}

void TRepF::NotaInsActExecute()
{
    if (m_cabecState != TDataSetState::Browse)
        return;
    {
        const QSignalBlocker bloqueio(TipoDocComboBox());
        m_cabec->ZerarNota();
    }
    m_repD->Itens().EmptyDataSet();
    m_itensDe.clear();
    AtualizarTotais();
    AbrirEdicaoNota(TDataSetState::Insert);
}

void TRepF::AltActExecute()
{
    if (m_cabecState != TDataSetState::Browse || m_repD->Notas().IsEmpty())
        return;
    {
        const QSignalBlocker bloqueio(TipoDocComboBox());
        if (!m_cabec->CamposParaControlesNota(m_repD->NotaAtual()->chave))
            return;
    }
    AbrirEdicaoNota(TDataSetState::Edit);
}

void TRepF::ListaButtonClick()
{
    const QList<QLineEdit *> &edits = m_edNotaPanel->ChavesRef();
    // Key 1 always, the others only when filled: blanks are squeezed out and later keys move up.
    QStringList chaves{edits.first()->text()};
    for (qsizetype i = 1; i < edits.size(); ++i)
        if (!edits.at(i)->text().isEmpty())
            chaves << edits.at(i)->text();
    const Contexto &contexto = Contexto::Atual();
    const TChaveNota nota = m_cabec->Chave();
    RastroHook(QStringLiteral("vai chamar NfeChaveRefExec"));
    NfeChavesRefListaExec(nota.emprCod, nota.estacaoCod, nota.compraCod, m_cabec->EmprCod(), chaves, m_conexao,
                          contexto.ufEmpresa.left(2), contexto.pastaFiscal, &TChildMDIBasF::staticMetaObject,
                          contexto.usuario, contexto.estacao, this);
    RastroHook(QStringLiteral("retornou de NfeChaveRefExec"));
    // Confirmed or not, the list comes back with at least five keys.
    for (qsizetype i = 0; i < edits.size(); ++i)
        edits.at(i)->setText(chaves.value(i));
}

bool TRepF::ConfirmarNota()
{
    if (!m_cabec->DocAceito() || !m_cabec->TotaisAceitos())
        return false;
    const bool gravou = m_cabecState == TDataSetState::Insert ? m_cabec->NotaConfirmIns() : m_cabec->NotaConfirmAlt();
    if (!gravou)
        return false;
    // The items go with the note; a failure was shown and what was written stays.
    m_repD->GravarItens(m_cabec->Chave());
    m_itensDe = m_cabec->Chave().DocStr();
    FecharEdicaoNota();
    return true;
}

void TRepF::CancelarEdicaoNota()
{
    // What was typed into the items goes too: they come back from the database.
    m_itensDe.clear();
    FecharEdicaoNota();
}

void TRepF::FecharEdicaoNota()
{
    m_edNotaPanel->hide();
    m_itemPanel->hide();
    m_tipoDocLabel->hide();
    m_filtros->show();
    m_notasGrid->show();
    SetItemState(TDataSetState::Browse);
    SetCabecState(TDataSetState::Browse);
    AposRolarNotas();
}

bool TRepF::FormKeyPress(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        const TItemNota::TEscape escape(*m_itemNota);
        QWidget *prodPanel = m_itemPanel->ProdPanel();
        if (prodPanel->isVisible()) {
            prodPanel->hide();
            return true;
        }
        if (!m_itemPanel->BuscaLabeledEdit()->text().isEmpty()) {
            // The item being typed is abandoned.
            m_itemNota->Zerar();
            m_itemNota->ZerarProd();
            m_itemNota->ZerarItem();
            return true;
        }
        if (m_edNotaPanel->isVisible()
            && Pergunta(QStringLiteral("Existem alterações ainda não gravadas. Deseja cancelar estas alterações?"))) {
            CancelarEdicaoNota();
            return true;
        }
    }
    if (event->key() == Qt::Key_F6) {
        TRepF_KeyDown_F6::Exec(*this, true);
        return true;
    }
    return TChildMDIBasF::FormKeyPress(event);
}

void TRepF::closeEvent(QCloseEvent *event)
{
    if (m_cabecState != TDataSetState::Browse
        && !Pergunta(QStringLiteral("Existem informações não gravadas. Deseja descartar estas alterações?"))) {
        event->ignore();
        return;
    }
    if (m_cabecState != TDataSetState::Browse)
        ApagarPrecoZerado();
    event->accept();
}

void TRepF::ApagarPrecoZerado()
{
    TConsultasDBI::ApagarPrecoZerado();
}

void TRepF::ExibirMenu()
{
    const QPoint abaixo = m_tarefasButton->mapTo(this, QPoint(0, m_tarefasButton->height()));
    m_menuPanel->adjustSize();
    m_menuPanel->move(qMin(abaixo.x(), qMax(0, width() - m_menuPanel->width())), abaixo.y());
    m_menuPanel->show();
    m_menuPanel->raise();
}

void TRepF::EsconderMenu()
{
    m_menuPanel->hide();
}

bool TRepF::eventFilter(QObject *watched, QEvent *event)
{
    const bool passou = event->type() == QEvent::Enter || event->type() == QEvent::MouseMove
                        || event->type() == QEvent::HoverMove;
    if (passou && watched == m_tarefasButton)
        ExibirMenu();
    else if (passou && m_menuPanel && m_menuPanel->isVisible() && !ponteiroNoMenu()
             && (watched == m_toolBar || watched == m_painelCentral
                 || (m_notasGrid && watched == m_notasGrid->viewport())))
        EsconderMenu();
    return TChildMDIBasF::eventFilter(watched, event);
}

// The tool bar also hears the moves over its own buttons, Tarefas among them, and the menu
// hangs over the list: only a pointer away from both has left the menu.
bool TRepF::ponteiroNoMenu() const
{
    const QPoint ponteiro = QCursor::pos();
    return m_tarefasButton->rect().contains(m_tarefasButton->mapFromGlobal(ponteiro))
           || m_menuPanel->rect().contains(m_menuPanel->mapFromGlobal(ponteiro));
}
