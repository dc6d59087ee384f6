#include "TBaixarViaChaveF.h"

#include "Dialogos.h"
#include "PastaFiscal.h"
#include "TBaixaNFePorChave.h"
#include "TBuscaArq.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

TBaixarViaChaveF::TBaixarViaChaveF(const QString &database, const QString &uf, const QString &textoContexto1,
                                   const QMetaObject *classeTela, const QString &textoContexto2,
                                   const TPess_Emit &emitente, int valorContexto, QWidget *parent)
    : QDialog(parent), m_database(database), m_uf(uf), m_textoContexto1(textoContexto1),
      m_textoContexto2(textoContexto2), m_classeTela(classeTela), m_emitente(emitente),
      m_valorContexto(valorContexto)
{
    setObjectName(QStringLiteral("BaixarViaChaveF"));
    setWindowTitle(QStringLiteral("Baixar NF-e pela chave"));

    m_chaveEdit = new QLineEdit(this);
    m_chaveEdit->setObjectName(QStringLiteral("ChaveEdit"));
    m_chaveEdit->setMaxLength(44);
    m_chaveEdit->setMinimumWidth(m_chaveEdit->fontMetrics().horizontalAdvance(QString(46, u'W')));
    connect(m_chaveEdit, &QLineEdit::textEdited, this, &TBaixarViaChaveF::chaveEditada);
    connect(m_chaveEdit, &QLineEdit::returnPressed, this, &TBaixarViaChaveF::Procurar);

    m_procurarButton = new QPushButton(QStringLiteral("&Procurar"), this);
    m_procurarButton->setObjectName(QStringLiteral("ProcurarButton"));
    m_procurarButton->setAutoDefault(false);
    connect(m_procurarButton, &QPushButton::clicked, this, &TBaixarViaChaveF::Procurar);

    m_nomeArqXML = new QLineEdit(this);
    m_nomeArqXML->setObjectName(QStringLiteral("NomeArqXMLLabeledEdit"));
    m_nomeArqXML->setReadOnly(true);

    m_situacao = new QLabel(this);
    m_situacao->setObjectName(QStringLiteral("SituacaoLabel"));
    m_situacao->setWordWrap(true);

    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    botoes->button(QDialogButtonBox::Ok)->setAutoDefault(false);
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botoes, &QDialogButtonBox::accepted, this, &TBaixarViaChaveF::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &TBaixarViaChaveF::reject);

    auto *campos = new QFormLayout;
    auto *linhaChave = new QHBoxLayout;
    linhaChave->addWidget(m_chaveEdit, 1);
    linhaChave->addWidget(m_procurarButton);
    auto *rotuloChave = new QLabel(QStringLiteral("&Chave"), this);
    rotuloChave->setBuddy(m_chaveEdit);
    campos->addRow(rotuloChave, linhaChave);
    campos->addRow(QStringLiteral("Arquivo XML"), m_nomeArqXML);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(campos);
    layout->addWidget(m_situacao);
    layout->addWidget(botoes);
}

// Letters come upper case and anything but letters and digits is dropped, so a key pasted with
// spaces or dots still lands whole.
void TBaixarViaChaveF::chaveEditada(const QString &texto)
{
    QString limpo;
    for (const QChar c : texto.toUpper())
        if ((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z'))
            limpo += c;
    limpo.truncate(44);
    if (limpo != texto) {
        const int cursor = qMin(m_chaveEdit->cursorPosition(), int(limpo.size()));
        m_chaveEdit->setText(limpo);
        m_chaveEdit->setCursorPosition(cursor);
    }
    m_nomeArqXML->clear();
    m_situacao->clear();
}

QStringList TBaixarViaChaveF::NomesDoXML(const QString &chave)
{
    return {chave + QStringLiteral("-nfe.xml"), chave + QStringLiteral(".xml"), QStringLiteral("NFe") + chave + QStringLiteral(".xml")};
}

bool TBaixarViaChaveF::Procurar()
{
    m_nomeArqXML->clear();
    const QString chave = m_chaveEdit->text().trimmed();
    if (chave.size() != 44) {
        MensagemInfo(QStringLiteral("A chave deve ter 44 caracteres"));
        m_chaveEdit->setFocus();
        return false;
    }
    QString erro;
    const QString pasta = PastaFiscal(&erro);
    if (pasta.isEmpty()) {
        MensagemErro(erro);
        return false;
    }
    TBuscaArq busca;
    busca.Pasta = pasta;
    for (const QString &nome : NomesDoXML(chave)) {
        busca.NomeArq = nome;
        if (busca.Execute()) {
            m_nomeArqXML->setText(QDir::toNativeSeparators(busca.GetUltimoCaminho()));
            m_situacao->setText(QStringLiteral("XML encontrado na pasta fiscal."));
            return true;
        }
    }
    const QString pastaVista = QDir::toNativeSeparators(pasta);
    if (TBaixaNFePorChave *baixa = TBaixaNFePorChave::Atual()) {
        const QString baixado = baixa->Baixar(chave, pasta, erro);
        if (!baixado.isEmpty()) {
            m_nomeArqXML->setText(QDir::toNativeSeparators(baixado));
            m_situacao->setText(QStringLiteral("XML baixado da SEFAZ."));
            return true;
        }
        MensagemErro(QStringLiteral("O XML da NF-e %1 não está na pasta %2 e não foi possível baixá-lo: %3")
                         .arg(chave, pastaVista, erro));
    } else {
        MensagemInfo(QStringLiteral("O XML da NF-e %1 não foi encontrado na pasta %2 nem em suas subpastas.")
                         .arg(chave, pastaVista));
    }
    m_situacao->setText(QStringLiteral("XML não encontrado."));
    m_chaveEdit->setFocus();
    return false;
}

void TBaixarViaChaveF::accept()
{
    if (m_nomeArqXML->text().isEmpty() && !Procurar())
        return;
    QDialog::accept();
}

// Enter in the key searches (the edit's returnPressed) and stops there: the default button
// would otherwise search again and show a second message for the same missing file.
void TBaixarViaChaveF::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && focusWidget() == m_chaveEdit)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}
