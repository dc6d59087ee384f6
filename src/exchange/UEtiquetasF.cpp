#include "UEtiquetasF.h"

#include "Dialogos.h"
#include "ExecutarModal.h"
#include "ImprimirOuPdf.h"
#include "TChaveNota.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// A group of two exclusive choices, the first one chosen.
QGroupBox *Grupo(QWidget *pai, const QString &titulo, QRadioButton *primeira, QRadioButton *segunda)
{
    auto *grupo = new QGroupBox(titulo, pai);
    auto *layout = new QVBoxLayout(grupo);
    layout->addWidget(primeira);
    layout->addWidget(segunda);
    primeira->setChecked(true);
    return grupo;
}

QRadioButton *Opcao(const QString &texto, const char *nome)
{
    auto *opcao = new QRadioButton(texto);
    opcao->setObjectName(QLatin1String(nome));
    return opcao;
}

} // namespace

TEtiquetasF::TEtiquetasF(QList<TEtiquetaItem> itens, QWidget *parent) : QDialog(parent), m_itens(std::move(itens))
{
    setObjectName(QStringLiteral("EtiquetasF"));
    setWindowTitle(QStringLiteral("Etiquetas"));
    m_porProduto = Opcao(QStringLiteral("Uma etiqueta por produto"), "PorProdutoRadioButton");
    m_porUnidade = Opcao(QStringLiteral("Uma etiqueta por unidade recebida"), "PorUnidadeRadioButton");
    m_folha = Opcao(QStringLiteral("Folha A4 de 3 x 10 etiquetas (70 x 29,7 mm)"), "FolhaA4RadioButton");
    m_rolo = Opcao(QStringLiteral("Rolo, uma etiqueta por linha"), "RoloRadioButton");
    m_resumo = new QLabel(this);
    m_resumo->setObjectName(QStringLiteral("ResumoLabel"));

    auto *botoes = new QDialogButtonBox(this);
    m_ok = botoes->addButton(QStringLiteral("Ok"), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName(QStringLiteral("OkButton"));
    m_ok->setDefault(true);
    botoes->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    connect(botoes, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(Grupo(this, QStringLiteral("Quantidade"), m_porProduto, m_porUnidade));
    layout->addWidget(Grupo(this, QStringLiteral("Formato"), m_folha, m_rolo));
    layout->addWidget(m_resumo);
    layout->addWidget(botoes);
    for (QRadioButton *opcao : {m_porProduto, m_porUnidade, m_folha, m_rolo})
        connect(opcao, &QRadioButton::toggled, this, &TEtiquetasF::AtualizarResumo);
    AtualizarResumo();
}

TEscolhaEtiquetas TEtiquetasF::Escolha() const
{
    return {m_porUnidade->isChecked(), m_rolo->isChecked() ? TFormatoEtiquetas::Rolo : TFormatoEtiquetas::FolhaA4};
}

void TEtiquetasF::AtualizarResumo()
{
    const TEscolhaEtiquetas escolha = Escolha();
    m_resumo->setText(TEtiquetas::Resumo(int(TEtiquetas::Montar(m_itens, escolha.porUnidade).size()), escolha.formato));
}

bool ImprimirEtiquetas(const TChaveNota &nota, TConexaoSQL &conexao, QWidget *pai)
{
    const auto itens = TEtiquetas::LerItens(conexao, nota);
    if (!itens)
        return false;
    TEtiquetasF dialogo(*itens, pai);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return false;
    const TEscolhaEtiquetas escolha = dialogo.Escolha();
    const QList<TEtiqueta> etiquetas = TEtiquetas::Montar(*itens, escolha.porUnidade);

    TTrabalhoImpressao trabalho;
    trabalho.nome = QStringLiteral("Etiquetas ") + nota.DocStr();
    trabalho.tituloImpressao = QStringLiteral("Imprimir etiquetas");
    trabalho.tituloPdf = QStringLiteral("Salvar etiquetas em PDF");
    trabalho.arquivoPdf = QStringLiteral("Etiquetas-%1.pdf").arg(nota.DocStr());
    trabalho.papel = TEtiquetas::Pagina(escolha.formato).pageSize();
    trabalho.desenhar = [&](QPagedPaintDevice &dispositivo, QString *motivo) {
        return TEtiquetas::Desenhar(etiquetas, escolha.formato, dispositivo, motivo);
    };
    QString gravadoEm;
    trabalho.gravarPdf = [&](const QString &arquivo, QString *motivo) {
        if (!TEtiquetas::GravarPdf(etiquetas, escolha.formato, arquivo, motivo))
            return false;
        gravadoEm = arquivo;
        return true;
    };
    QString erro;
    if (!ImprimirOuPdf(pai, trabalho, &erro)) {
        if (!erro.isEmpty())
            MensagemErro(erro);
        return false;
    }
    if (!gravadoEm.isEmpty())
        MensagemInfo(QStringLiteral("Etiquetas gravadas em %1 (%2)")
                         .arg(gravadoEm, TEtiquetas::Resumo(int(etiquetas.size()), escolha.formato)));
    return true;
}
