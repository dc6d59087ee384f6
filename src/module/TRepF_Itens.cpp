// Item entry on the main screen: the item panel's controller, what it asks of the screen, and
// the registers behind the panel's buttons.
#include "TRepF.h"

#include "Contexto.h"
#include "TCabecNota.h"
#include "TCadastroF.h"
#include "TCertificadoF.h"
#include "TConsultasDBI.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TItemNota.h"
#include "TItemPanel.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

namespace {

// A click whose widget did not keep the focus was answered by a field refusing to be left: the
// click does nothing more.
template <typename Acao>
auto SeFicouComFoco(QWidget *alvo, Acao acao)
{
    return [alvo, acao] {
        if (QApplication::focusWidget() == alvo)
            acao();
    };
}

} // namespace

void TRepF::CriarItemNota()
{
    m_itemNota = std::make_unique<TItemNota>(*this, *m_itemPanel, m_conexao);
    TItemNota *item = m_itemNota.get();
    TItemPanel *p = m_itemPanel;
    connect(m_itensGrid, &QAbstractItemView::doubleClicked, item,
            SeFicouComFoco(m_itensGrid, [item] { item->EditarItem(); }));
    connect(p->ExcluirItemButton(), &QAbstractButton::clicked, item,
            SeFicouComFoco(p->ExcluirItemButton(), [item] { item->ExcluirItem(); }));
    connect(p->ProdButton(), &QAbstractButton::clicked, this, SeFicouComFoco(p->ProdButton(), [this] {
                AbrirCadastro(QStringLiteral("ProdF"), QStringLiteral("TabProdAct"));
            }));
    connect(p->UnidButton(), &QAbstractButton::clicked, this, SeFicouComFoco(p->UnidButton(), [this] {
                AbrirCadastro(QStringLiteral("UnidF"), QStringLiteral("EstoqUnidAct"));
            }));
    connect(p->TribButton(), &QAbstractButton::clicked, this, SeFicouComFoco(p->TribButton(), [this] {
                AbrirCadastro(QStringLiteral("TribF"), QStringLiteral("TabFiscoTributAct"));
            }));
}

void TRepF::AbrirCadastro(const QString &form, const QString &acao)
{
    if (!Cadastros::Abrir(form, acao, m_conexao, this))
        return;
    // The lists are read again; what the item had chosen stays chosen.
    QComboBox *unid = m_itemPanel->UnidComboBox();
    QComboBox *trib = m_itemPanel->TribComboBox();
    const QVariant unidCod = unid->currentData();
    const QVariant tribCod = trib->currentData();
    PreencherUnid();
    PreencherTrib();
    unid->setCurrentIndex(unidCod.isValid() ? unid->findData(unidCod) : -1);
    trib->setCurrentIndex(tribCod.isValid() ? trib->findData(tribCod) : -1);
}

void TRepF::CriarAcoesTabelas()
{
    connect(m_acoes.value(QStringLiteral("EmprCadAct")), &QAction::triggered, this,
            [this] { AbrirTabela(QStringLiteral("EmprF"), QStringLiteral("TabEmprAct")); });
    connect(m_acoes.value(QStringLiteral("FornecCadAct")), &QAction::triggered, this,
            [this] { AbrirTabela(QStringLiteral("FornecF"), QStringLiteral("TabFornecAct")); });
    connect(m_acoes.value(QStringLiteral("CertificadoAct")), &QAction::triggered, this, &TRepF::AbrirCertificado);
}

void TRepF::AbrirTabela(const QString &form, const QString &acao)
{
    if (!Cadastros::Abrir(form, acao, m_conexao, this))
        return;
    // The company's state, the lists of the header and the filter; the filter keeps its choice.
    Contexto::Atual().ufEmpresa = TConsultasDBI::UFEmpresa(m_conexao, Contexto::Atual().empresa);
    const QVariant filtro = m_fornecFiltro->currentData();
    PrepEmprComboBox();
    PreencherFornec();
    m_fornecFiltro->setCurrentIndex(std::max(0, m_fornecFiltro->findData(filtro)));
}

void TRepF::AbrirCertificado()
{
    const int empresa = Contexto::Atual().empresa;
    TCertificadoF dialogo(empresa, m_conexao.ValorStr(TCadastroDBI::SqlCnpjEmpresa(empresa)).trimmed(), this);
    dialogo.exec();
}

bool TRepF::EntraItemAceito()
{
    if (m_cabecState == TDataSetState::Browse)
        return false;
    TCabecNota &c = *m_cabec;
    return c.FornecAceito() && c.DtDocAceita() && c.SerieAceita() && c.NDocAceito() && c.TotProdAceito()
           && c.ChaveRefAceita();
}

bool TRepF::TotProdAceito()
{
    return m_cabec->TotProdAceito();
}

bool TRepF::CabecParaItemAceito()
{
    TCabecNota &c = *m_cabec;
    return c.DtDocAceita() && c.SerieAceita() && c.NDocAceito() && c.TotProdAceito() && c.TotaisAceitos();
}

int TRepF::FornecCodSelecionado() const
{
    const QComboBox *fornec = m_edNotaPanel->FornecComboBox();
    return fornec->currentIndex() >= 0 ? fornec->currentData().toInt() : 0;
}

int TRepF::NotaEmprCod() const
{
    return m_cabec->EmprCod();
}

int TRepF::NotaEstacaoCod() const
{
    const auto nota = m_repD->NotaAtual();
    return nota ? nota->chave.estacaoCod : 0;
}

bool TRepF::NotaPanelVisivel() const
{
    return m_edNotaPanel->isVisible();
}

QAbstractButton *TRepF::NotaOkButton() const
{
    return m_edNotaPanel->NotaOkButton();
}

QAbstractButton *TRepF::NotaCancButton() const
{
    return m_edNotaPanel->NotaCancButton();
}

QAbstractItemView *TRepF::ItensGrid() const
{
    return m_itensGrid;
}

TClientDataSet &TRepF::ItensNota()
{
    return m_repD->Itens();
}
