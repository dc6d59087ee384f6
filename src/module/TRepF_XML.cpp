// The note's items and reference key from NF-e XML files, and the "NFe de Interesse" module.
#include "TRepF.h"

#include "Config.h"
#include "Contexto.h"
#include "Dialogos.h"
#include "PastaFiscal.h"
#include "TAndamento.h"
#include "TEdNotaPanel.h"
#include "TFornecDBI.h"
#include "TItemNota.h"
#include "TItemPanel.h"
#include "TrazerXML.h"
#include "UNFeDeInteresse.h"
#include "URepF_CarregarDoXML.h"
#include "URepF_ImportItens.h"
#include "UTipoDoc.h"

#include <QAction>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString MsgNotaComItens = QStringLiteral("Não é permitido importar de XML se a nota já possui itens");

// The last folder an XML was chosen from, kept for each database.
QString ChavePastaIni()
{
    const QByteArray banco = Contexto::Atual().banco.database.toUtf8();
    return QStringLiteral("REP_XMLIMPORT_PASTAINI/")
           + QString::fromLatin1(QCryptographicHash::hash(banco, QCryptographicHash::Sha1).toHex().left(16));
}

QString EscolherXML()
{
    const QString chave = ChavePastaIni();
    const QString arquivo = SelectFile(QStringLiteral("Indique o arquivo XML"), ConfigLerStr(chave),
                                       QStringLiteral("DANFE *.XML|*.xml|*.*|*.*"));
    if (!arquivo.isEmpty())
        ConfigGravarStr(chave, QFileInfo(arquivo).absolutePath());
    return arquivo;
}

} // namespace

void TRepF::CriarBotoesXML()
{
    connect(m_edNotaPanel->ItensButton(), &QAbstractButton::clicked, this, &TRepF::ItensButtonClick);
    connect(m_edNotaPanel->XMLImportButton(), &QAbstractButton::clicked, this, &TRepF::XMLImportButtonClick);
    QAction *interesse = m_acoes.value(QStringLiteral("NFEDeInteresseAct"));
    connect(interesse, &QAction::triggered, this, [this, interesse] {
        interesse->setEnabled(false);
        ExecutarNFeDeInteresse(this);
        AtualizarAcoes();
    });
}

TTelaNota TRepF::TelaNota()
{
    return TTelaNota{*this, *this, *m_itemPanel, *m_itemNota, *m_edNotaPanel};
}

void TRepF::ItensButtonClick()
{
    const int fornecCod = FornecCodSelecionado();
    if (TipoDocSelecionado() != TipoDoc::RetornoComodato && fornecCod == 0) {
        MensagemErro(QStringLiteral("O fornecedor é obrigatório"));
        return;
    }
    if (!ItensNota().IsEmpty()) {
        MensagemErro(MsgNotaComItens);
        return;
    }
    TFornec fornec;
    if (!TFornecDBI::PreenchaDoBD(m_conexao, fornecCod, fornec)) {
        MensagemErro(QStringLiteral("Erro lendo o fornecedor %1: %2").arg(fornecCod).arg(m_conexao.UltimoErro()));
        return;
    }
    QStringList chaves;
    for (const QLineEdit *chave : m_edNotaPanel->ChavesRef())
        if (!chave->text().trimmed().isEmpty())
            chaves << chave->text().trimmed();
    QString erro;
    const QString pastaFiscal = PastaFiscal(&erro);
    if (pastaFiscal.isEmpty()) {
        MensagemErro(erro);
        return;
    }
    TRepF_ImportItens importacao(fornec, chaves, m_conexao, pastaFiscal, QString(), TelaNota(), *m_andamento);
    if (m_cabecState == TDataSetState::Edit)
        if (const auto nota = m_repD->NotaAtual())
            importacao.SetNotaAtual(nota->chave);
    importacao.Executar();
    m_andamento->Fechar();
}

void TRepF::XMLImportButtonClick()
{
    // A return of lent goods takes its items from the XML of the goods that went out.
    const bool comodato = TipoDocSelecionado() == TipoDoc::RetornoComodato;
    if (comodato && !ItensNota().IsEmpty()) {
        MensagemErro(MsgNotaComItens);
        m_itemPanel->BuscaLabeledEdit()->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QString arquivo = EscolherXML();
    if (arquivo.isEmpty())
        return;
    QLineEdit *chaveRef = m_edNotaPanel->NFEChaveRefLabeledEdit();
    chaveRef->setText(TRepD::NomeXMLToNFEChave(arquivo));
    if (comodato) {
        CarregarDoXML(TelaNota(), arquivo, *m_andamento);
        return;
    }
    QString erro;
    const QString pastaFiscal = PastaFiscal(&erro);
    if (pastaFiscal.isEmpty())
        MensagemErro(erro);
    else
        TrazerXML(arquivo, pastaFiscal);
    chaveRef->setFocus(Qt::OtherFocusReason);
}
