#include "TCertificadoF.h"

#include "Config.h"
#include "Contexto.h"
#include "Dialogos.h"
#include "TCertificadoA1.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

TCertificadoF::TCertificadoF(int empresa, const QString &cnpjEmpresa, QWidget *parent)
    : QDialog(parent), m_empresa(empresa), m_cnpjEmpresa(cnpjEmpresa), m_arquivo(new QLineEdit(this)),
      m_senha(new QLineEdit(this)), m_resultado(new QLabel(this)),
      m_testar(new QPushButton(QStringLiteral("Testar"), this)), m_gravar(new QPushButton(QStringLiteral("Gravar"), this))
{
    setObjectName(QStringLiteral("CertificadoF"));
    setWindowTitle(QStringLiteral("Certificado Digital - Empresa %1").arg(empresa));
    m_arquivo->setObjectName(QStringLiteral("ArquivoEdit"));
    m_arquivo->setText(ConfigLerStr(ChaveArquivo(empresa)));
    m_senha->setObjectName(QStringLiteral("SenhaEdit"));
    m_senha->setEchoMode(QLineEdit::Password);
    m_senha->setText(ConfigLerStr(ChaveSenha(empresa)));
    m_resultado->setObjectName(QStringLiteral("ResultadoLabel"));
    m_resultado->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_resultado->setMinimumHeight(5 * fontMetrics().height());
    m_resultado->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_resultado->setFrameShape(QFrame::StyledPanel);
    m_testar->setObjectName(QStringLiteral("TestarButton"));
    m_gravar->setObjectName(QStringLiteral("GravarButton"));

    auto *procurar = new QToolButton(this);
    procurar->setObjectName(QStringLiteral("ProcurarButton"));
    procurar->setText(QStringLiteral("..."));
    auto *linhaArquivo = new QHBoxLayout;
    linhaArquivo->addWidget(m_arquivo, 1);
    linhaArquivo->addWidget(procurar);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Arquivo (.pfx)"), linhaArquivo);
    form->addRow(QStringLiteral("Senha"), m_senha);

    auto *cancelar = new QPushButton(QStringLiteral("Cancelar"), this);
    auto *botoes = new QHBoxLayout;
    botoes->addWidget(m_testar);
    botoes->addStretch();
    botoes->addWidget(m_gravar);
    botoes->addWidget(cancelar);
    for (QPushButton *b : {m_testar, m_gravar, cancelar})
        b->setAutoDefault(false);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_resultado, 1);
    layout->addLayout(botoes);
    connect(procurar, &QToolButton::clicked, this, &TCertificadoF::Procurar);
    connect(m_testar, &QPushButton::clicked, this, &TCertificadoF::Testar);
    connect(m_gravar, &QPushButton::clicked, this, [this] {
        if (Gravar())
            accept();
    });
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    resize(560, 260);
}

QString TCertificadoF::ChaveArquivo(int empresa)
{
    return QStringLiteral("NFE_CERTIFICADO_%1").arg(empresa);
}

QString TCertificadoF::ChaveSenha(int empresa)
{
    return QStringLiteral("NFE_CERTIFICADO_SENHA_%1").arg(empresa);
}

void TCertificadoF::Procurar()
{
    const QString atual = m_arquivo->text().trimmed();
    const QString escolhido = SelectFile(QStringLiteral("Certificado Digital"),
                                         atual.isEmpty() ? QString() : QFileInfo(atual).absolutePath(),
                                         QStringLiteral("Certificado A1 (*.pfx *.p12);;Todos os arquivos (*)"));
    if (!escolhido.isEmpty())
        m_arquivo->setText(escolhido);
}

bool TCertificadoF::Testar()
{
    m_resultado->clear();
    const QString arquivo = m_arquivo->text().trimmed();
    if (arquivo.isEmpty()) {
        MensagemErro(QStringLiteral("Indique o arquivo do certificado"));
        m_arquivo->setFocus();
        return false;
    }
    QString erro;
    const auto certificado = TCertificadoA1::Abrir(arquivo, m_senha->text(), &erro);
    if (!certificado) {
        MensagemErro(erro);
        m_senha->setFocus();
        return false;
    }
    const QString formato = QStringLiteral("dd/MM/yyyy");
    QStringList linhas{QStringLiteral("Titular: ") + certificado->Titular(),
                       QStringLiteral("CNPJ: ") + certificado->Cnpj(),
                       QStringLiteral("Válido de %1 até %2")
                           .arg(certificado->ValidoDe().toLocalTime().toString(formato),
                                certificado->ValidoAte().toLocalTime().toString(formato))};
    if (certificado->ValidoAte() < Contexto::Atual().Agora())
        linhas << QStringLiteral("Atenção: o certificado está vencido");
    if (!m_cnpjEmpresa.isEmpty() && certificado->Cnpj() != m_cnpjEmpresa)
        linhas << QStringLiteral("Atenção: o CNPJ do certificado não é o da empresa (%1)").arg(m_cnpjEmpresa);
    if (certificado->Teste())
        linhas << QStringLiteral("Certificado de TESTE: nunca é aceito em produção");
    m_resultado->setText(linhas.join(QLatin1Char('\n')));
    return true;
}

bool TCertificadoF::Gravar()
{
    if (!Testar())
        return false;
    ConfigGravarStr(ChaveArquivo(m_empresa), m_arquivo->text().trimmed());
    ConfigGravarStr(ChaveSenha(m_empresa), m_senha->text());
    return true;
}
