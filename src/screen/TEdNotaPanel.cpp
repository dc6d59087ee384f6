#include "TEdNotaPanel.h"

#include "FiltroTeclas.h"
#include "CamposTela.h"
#include "TNumEditBR.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace CamposTela;

namespace {

// As wide as `amostra`; without one the edit grows with its column.
QLineEdit *NovoTexto(QWidget *pai, const char *nome, int maxLen, const QString &amostra = QString())
{
    auto *edit = new QLineEdit(pai);
    edit->setObjectName(QLatin1String(nome));
    edit->setMaxLength(maxLen);
    if (!amostra.isEmpty()) {
        edit->setFixedWidth(LarguraPara(edit, amostra));
        edit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    } else {
        edit->setMinimumWidth(LarguraPara(edit, QString(16, QLatin1Char('x'))));
        edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    return edit;
}

QDateEdit *NovaData(QWidget *pai, const char *nome)
{
    auto *data = new QDateEdit(pai);
    data->setObjectName(QLatin1String(nome));
    data->setCalendarPopup(true);
    data->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    data->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return data;
}

QLabel *NovoRotulo(QWidget *pai, const QString &texto, QWidget *campo)
{
    auto *rotulo = new QLabel(texto, pai);
    rotulo->setBuddy(campo);
    rotulo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return rotulo;
}

// A grid of "caption  field" pairs; `coluna` counts pairs, so a field spanning two pairs covers
// the caption column of the next pair as well. Fields are noted in the order they are added,
// which is the order Tab visits them.
class GradeRotulada
{
public:
    GradeRotulada(QWidget *pai, QList<QWidget *> &campos)
        : m_pai(pai), m_grade(new QGridLayout(pai)), m_campos(campos)
    {
        m_grade->setHorizontalSpacing(6);
        m_grade->setVerticalSpacing(4);
    }

    QGridLayout *Layout() const { return m_grade; }

    void Par(int linha, int coluna, const QString &rotulo, QWidget *campo, int pares = 1)
    {
        m_grade->addWidget(NovoRotulo(m_pai, rotulo, campo), linha, 2 * coluna);
        const Qt::Alignment alinhamento =
            campo->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed ? Qt::AlignLeft : Qt::Alignment();
        m_grade->addWidget(campo, linha, 2 * coluna + 1, 1, 2 * pares - 1, alinhamento);
        m_campos.append(campo);
        m_ultimaColuna = std::max(m_ultimaColuna, 2 * (coluna + pares) - 1);
    }

    // A composite cell: a field followed by further "caption field" pairs on the same line,
    // spanning `pares` pairs of the grid.
    void ParComposto(int linha, int coluna, const QString &rotulo, QWidget *campo,
                     const QList<std::pair<QString, QWidget *>> &seguintes, int pares = 1)
    {
        auto *celula = new QWidget(m_pai);
        auto *caixa = new QHBoxLayout(celula);
        caixa->setContentsMargins(0, 0, 0, 0);
        caixa->setSpacing(6);
        campo->setParent(celula);
        caixa->addWidget(campo);
        m_campos.append(campo);
        bool cresce = false;
        for (const auto &[texto, outro] : seguintes) {
            outro->setParent(celula);
            caixa->addSpacing(4);
            caixa->addWidget(NovoRotulo(celula, texto, outro));
            caixa->addWidget(outro);
            m_campos.append(outro);
            cresce = cresce || outro->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding;
        }
        if (!cresce)
            caixa->addStretch();
        m_grade->addWidget(NovoRotulo(m_pai, rotulo, campo), linha, 2 * coluna);
        m_grade->addWidget(celula, linha, 2 * coluna + 1, 1, 2 * pares - 1);
        m_ultimaColuna = std::max(m_ultimaColuna, 2 * (coluna + pares) - 1);
    }

    // Free space goes to the right of the last column and below the last line.
    void Fechar()
    {
        m_grade->setColumnStretch(m_ultimaColuna + 1, 1);
        m_grade->setRowStretch(m_grade->rowCount(), 1);
    }

private:
    QWidget *m_pai;
    QGridLayout *m_grade;
    QList<QWidget *> &m_campos;
    int m_ultimaColuna = 0;
};

} // namespace

TEdNotaPanel::TEdNotaPanel(QWidget *parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("EdNotaPanel"));
    setFrameShape(QFrame::StyledPanel);

    m_abas = new QTabWidget(this);
    m_abas->setObjectName(QStringLiteral("NotaTabWidget"));
    m_abas->addTab(CriarAbaNota(), tr("&Nota"));
    m_abas->addTab(CriarAbaTransporte(), tr("&Transporte"));
    m_abas->addTab(CriarAbaReferencias(), tr("&Referências"));

    m_notaOkButton = new QPushButton(tr("&Gravar"), this);
    m_notaOkButton->setObjectName(QStringLiteral("NotaOkButton"));
    m_notaCancButton = new QPushButton(tr("&Cancelar"), this);
    m_notaCancButton->setObjectName(QStringLiteral("NotaCancButton"));

    auto *botoes = new QVBoxLayout;
    botoes->addSpacing(m_abas->tabBar()->sizeHint().height());
    botoes->addWidget(m_notaOkButton);
    botoes->addWidget(m_notaCancButton);
    botoes->addStretch();

    auto *principal = new QHBoxLayout(this);
    principal->setContentsMargins(6, 6, 6, 6);
    principal->addWidget(m_abas, 1);
    principal->addLayout(botoes);

    EncadearTab();
}

QWidget *TEdNotaPanel::CriarAbaNota()
{
    auto *aba = new QWidget;
    aba->setObjectName(QStringLiteral("NotaAba"));
    auto *linha = new QHBoxLayout(aba);
    linha->setContentsMargins(4, 4, 4, 4);
    linha->addWidget(CriarNota(aba), 3);
    linha->addWidget(CriarTotais(aba), 2);
    return aba;
}

QWidget *TEdNotaPanel::CriarNota(QWidget *aba)
{
    auto *nota = new QGroupBox(tr("Nota"), aba);
    nota->setObjectName(QStringLiteral("NotaGroupBox"));
    m_emprComboBox = NovoCombo(nota, "EmprComboBox", 16, false);
    m_destinEmprComboBox = NovoCombo(nota, "DestinEmprComboBox", 16, false);
    m_tipoDocComboBox = NovoCombo(nota, "TipoDocComboBox", 19, false);
    m_tipoDocComboBox->setMaxVisibleItems(16);
    m_dtDocDtFr = NovaData(nota, "DtDocDtFr");
    m_dtSaiDtFr = NovaData(nota, "DtSaiDtFr");
    m_hSaiMaskEdit = new QLineEdit(nota);
    m_hSaiMaskEdit->setObjectName(QStringLiteral("HSaiMaskEdit"));
    m_hSaiMaskEdit->setInputMask(QStringLiteral("99:99"));
    m_hSaiMaskEdit->setFixedWidth(LarguraPara(m_hSaiMaskEdit, QStringLiteral("99:99M")));
    m_hSaiMaskEdit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_nDocNumEditBR = NovoNum(nota, "NDocNumEditBR", 0, 9, 9);
    m_serieNumEditBR = NovoNum(nota, "SerieNumEditBR", 0, 4, 5);
    m_fornecComboBox = NovoCombo(nota, "FornecComboBox", 30, true);
    m_compraCFOPNumEditBR = NovoNum(nota, "CompraCFOPNumEditBR", 0, 4, 4);
    m_compraNatOpLabeledEdit = NovoTexto(nota, "CompraNatOpLabeledEdit", 120);

    GradeRotulada gNota(nota, m_campos);
    gNota.Par(0, 0, tr("&Empresa"), m_emprComboBox);
    gNota.Par(0, 1, tr("Destino"), m_destinEmprComboBox);
    gNota.Par(0, 2, tr("Ti&po"), m_tipoDocComboBox);
    gNota.Par(1, 0, tr("E&missão"), m_dtDocDtFr);
    gNota.ParComposto(1, 1, tr("Saída"), m_dtSaiDtFr, {{tr("Hora"), m_hSaiMaskEdit}});
    gNota.ParComposto(1, 2, tr("Nº &Doc."), m_nDocNumEditBR, {{tr("&Série"), m_serieNumEditBR}});
    gNota.Par(2, 0, tr("&Fornecedor"), m_fornecComboBox, 3);
    gNota.ParComposto(3, 0, tr("CFOP"), m_compraCFOPNumEditBR,
                      {{tr("N&atureza da Operação"), m_compraNatOpLabeledEdit}}, 3);
    gNota.Fechar();
    return nota;
}

QWidget *TEdNotaPanel::CriarTotais(QWidget *aba)
{
    auto *totais = new QGroupBox(tr("Totais (R$)"), aba);
    totais->setObjectName(QStringLiteral("TotaisGroupBox"));
    m_totProdNumEditBR = NovoNum(totais, "TotProdNumEditBR", 2, 8);
    m_ipiTotNumEditBR = NovoNum(totais, "IPITotNumEditBR", 2, 8);
    m_freteNumEditBR = NovoNum(totais, "FreteNumEditBR", 2, 8);
    m_outrasNumEditBR = NovoNum(totais, "OutrasNumEditBR", 2, 8);
    m_icmsTotNumEditBR = NovoNum(totais, "ICMSTotNumEditBR", 2, 8);
    m_icmsSTTotNumEditBR = NovoNum(totais, "ICMSSTTotNumEditBR", 2, 8);
    m_fcpTotNumEditBR = NovoNum(totais, "FCPTotNumEditBR", 2, 8);
    m_fcpSTTotNumEditBR = NovoNum(totais, "FCPSTTotNumEditBR", 2, 8);
    m_descontoTotNumEditBR = NovoNum(totais, "DescontoTotNumEditBR", 2, 8);
    m_totNumEditBR = NovoNum(totais, "TotNumEditBR", 2, 8);
    m_totNumEditBR->SetReadOnlyLook(true);
    QFont negrito = m_totNumEditBR->font();
    negrito.setBold(true);
    m_totNumEditBR->setFont(negrito);

    GradeRotulada gTotais(totais, m_campos);
    gTotais.Par(0, 0, tr("Pr&odutos"), m_totProdNumEditBR);
    gTotais.Par(0, 1, tr("IPI"), m_ipiTotNumEditBR);
    gTotais.Par(1, 0, tr("Frete"), m_freteNumEditBR);
    gTotais.Par(1, 1, tr("Outras Desp."), m_outrasNumEditBR);
    gTotais.Par(2, 0, tr("ICMS"), m_icmsTotNumEditBR);
    gTotais.Par(2, 1, tr("ICMS ST"), m_icmsSTTotNumEditBR);
    gTotais.Par(3, 0, tr("FCP"), m_fcpTotNumEditBR);
    gTotais.Par(3, 1, tr("FCP ST"), m_fcpSTTotNumEditBR);
    gTotais.Par(4, 0, tr("Desconto"), m_descontoTotNumEditBR);
    gTotais.Par(4, 1, tr("Total"), m_totNumEditBR);
    gTotais.Fechar();
    return totais;
}

QWidget *TEdNotaPanel::CriarAbaTransporte()
{
    auto *aba = new QWidget;
    aba->setObjectName(QStringLiteral("TransporteAba"));
    auto *linhaAbas = new QHBoxLayout(aba);
    linhaAbas->setContentsMargins(4, 4, 4, 4);
    linhaAbas->addWidget(CriarFrete(aba), 4);
    linhaAbas->addWidget(CriarVeiculos(aba), 4);
    linhaAbas->addWidget(CriarVolumes(aba), 4);
    return aba;
}

QWidget *TEdNotaPanel::CriarFrete(QWidget *aba)
{
    auto *frete = new QGroupBox(tr("Frete"), aba);
    frete->setObjectName(QStringLiteral("FreteGroupBox"));
    m_freteModalidadeComboBox = NovoCombo(frete, "FreteModalidadeComboBox", 22, false);
    m_freteModalidadeComboBox->addItems({QStringLiteral("<NAO INDICADO>"), QStringLiteral("EMITENTE"),
                                         QStringLiteral("DESTINATARIO/REMETENTE"), QStringLiteral("TERCEIROS"),
                                         QStringLiteral("SEM FRETE")});
    m_transpFornecComboBox = NovoCombo(frete, "TranspFornecComboBox", 22, true);
    m_freteBCValNumEditBR = NovoNum(frete, "FreteBCValNumEditBR", 2, 7);
    m_freteICMSNumEditBR = NovoNum(frete, "FreteICMSNumEditBR", 2, 3);
    m_freteICMSRetValNumEditBR = NovoNum(frete, "FreteICMSRetValNumEditBR", 2, 7);
    m_freteCFOPNumEditBR = NovoNum(frete, "FreteCFOPNumEditBR", 0, 4, 4);

    GradeRotulada gFrete(frete, m_campos);
    gFrete.Par(0, 0, tr("&Modalidade"), m_freteModalidadeComboBox, 2);
    gFrete.Par(1, 0, tr("Trans&portadora"), m_transpFornecComboBox, 2);
    gFrete.Par(2, 0, tr("BC ICMS R$"), m_freteBCValNumEditBR);
    gFrete.Par(2, 1, tr("Alíq. %"), m_freteICMSNumEditBR);
    gFrete.Par(3, 0, tr("ICMS Ret. R$"), m_freteICMSRetValNumEditBR);
    gFrete.Par(3, 1, tr("CFOP"), m_freteCFOPNumEditBR);
    gFrete.Fechar();
    return frete;
}

QWidget *TEdNotaPanel::CriarVeiculos(QWidget *aba)
{
    auto *veiculos = new QGroupBox(tr("Veículo e reboques"), aba);
    veiculos->setObjectName(QStringLiteral("VeiculosGroupBox"));
    auto *gVeiculos = new QGridLayout(veiculos);
    gVeiculos->setHorizontalSpacing(6);
    gVeiculos->setVerticalSpacing(4);
    struct Conjunto
    {
        QString titulo;
        const char *placa;
        const char *uf;
        const char *antt;
        QLineEdit **mPlaca;
        QLineEdit **mUF;
        QLineEdit **mANTT;
    };
    const Conjunto conjuntos[] = {
        {tr("Veículo"), "FreteVeiPlacaLabeledEdit", "FreteVeiUFLabeledEdit", "FreteVeiANTTLabeledEdit",
         &m_freteVeiPlacaLabeledEdit, &m_freteVeiUFLabeledEdit, &m_freteVeiANTTLabeledEdit},
        {tr("Reboque 1"), "FreteReboque1PlacaLabeledEdit", "FreteReboque1UFLabeledEdit",
         "FreteReboque1ANTTLabeledEdit", &m_freteReboque1PlacaLabeledEdit, &m_freteReboque1UFLabeledEdit,
         &m_freteReboque1ANTTLabeledEdit},
        {tr("Reboque 2"), "FreteReboque2PlacaLabeledEdit", "FreteReboque2UFLabeledEdit",
         "FreteReboque2ANTTLabeledEdit", &m_freteReboque2PlacaLabeledEdit, &m_freteReboque2UFLabeledEdit,
         &m_freteReboque2ANTTLabeledEdit},
    };
    int linha = 0;
    for (const Conjunto &c : conjuntos) {
        *c.mPlaca = NovoTexto(veiculos, c.placa, 7, QStringLiteral("MMM9M99"));
        FiltroTeclas::AplicarPlaca(*c.mPlaca);
        *c.mUF = NovoTexto(veiculos, c.uf, 2, QStringLiteral("MWM"));
        FiltroTeclas::AplicarUF(*c.mUF);
        *c.mANTT = NovoTexto(veiculos, c.antt, 20, QString(12, QLatin1Char('9')));
        auto *titulo = new QLabel(c.titulo, veiculos);
        QFont negrito = titulo->font();
        negrito.setBold(true);
        titulo->setFont(negrito);
        gVeiculos->addWidget(titulo, linha, 0);
        gVeiculos->addWidget(NovoRotulo(veiculos, tr("Placa"), *c.mPlaca), linha, 1);
        gVeiculos->addWidget(*c.mPlaca, linha, 2);
        gVeiculos->addWidget(NovoRotulo(veiculos, tr("UF"), *c.mUF), linha, 3);
        gVeiculos->addWidget(*c.mUF, linha, 4);
        gVeiculos->addWidget(NovoRotulo(veiculos, tr("RNTC"), *c.mANTT), linha, 5);
        gVeiculos->addWidget(*c.mANTT, linha, 6);
        m_campos << *c.mPlaca << *c.mUF << *c.mANTT;
        ++linha;
    }
    gVeiculos->setColumnStretch(7, 1);
    gVeiculos->setRowStretch(linha, 1);
    return veiculos;
}

QWidget *TEdNotaPanel::CriarVolumes(QWidget *aba)
{
    auto *volumes = new QGroupBox(tr("Volumes e peso"), aba);
    volumes->setObjectName(QStringLiteral("VolumesGroupBox"));
    m_freteVolsQtdNumEditBR = NovoNum(volumes, "FreteVolsQtdNumEditBR", 3, 6);
    m_freteVolsEspecieLabeledEdit = NovoTexto(volumes, "FreteVolsEspecieLabeledEdit", 60);
    m_freteVolsMarcaLabeledEdit = NovoTexto(volumes, "FreteVolsMarcaLabeledEdit", 60);
    m_freteVolsNumLabeledEdit = NovoTexto(volumes, "FreteVolsNumLabeledEdit", 60);
    m_fretePesoLiqNumEditBR = NovoNum(volumes, "FretePesoLiqNumEditBR", 3, 6);
    m_fretePesoBrutoNumEditBR = NovoNum(volumes, "FretePesoBrutoNumEditBR", 3, 6);

    GradeRotulada gVolumes(volumes, m_campos);
    gVolumes.Par(0, 0, tr("Qtd. Volumes"), m_freteVolsQtdNumEditBR);
    gVolumes.Par(0, 1, tr("Espécie"), m_freteVolsEspecieLabeledEdit);
    gVolumes.Par(1, 0, tr("Peso Líq. kg"), m_fretePesoLiqNumEditBR);
    gVolumes.Par(1, 1, tr("Marca"), m_freteVolsMarcaLabeledEdit);
    gVolumes.Par(2, 0, tr("Peso Bruto kg"), m_fretePesoBrutoNumEditBR);
    gVolumes.Par(2, 1, tr("Numeração"), m_freteVolsNumLabeledEdit);
    gVolumes.Layout()->setColumnStretch(3, 1);
    gVolumes.Layout()->setRowStretch(3, 1);
    return volumes;
}

QWidget *TEdNotaPanel::CriarAbaReferencias()
{
    auto *aba = new QWidget;
    aba->setObjectName(QStringLiteral("ReferenciasAba"));

    auto *grupo = new QGroupBox(tr("Chaves de acesso das NF-e referenciadas (44 caracteres)"), aba);
    grupo->setObjectName(QStringLiteral("ReferenciasGroupBox"));
    GradeRotulada grade(grupo, m_campos);
    const char *nomes[] = {"NFEChaveRefLabeledEdit", "NFEChaveRef2LabeledEdit", "NFEChaveRef3LabeledEdit",
                           "NFEChaveRef4LabeledEdit", "NFEChaveRef5LabeledEdit"};
    int ordem = 0;
    for (const char *nome : nomes) {
        auto *chave = new QLineEdit(grupo);
        chave->setObjectName(QLatin1String(nome));
        // Upper case: the alphanumeric CNPJ puts letters in the keys.
        FiltroTeclas::Aplicar(chave, FiltroTeclas::CaracteresPlaca, 44);
        chave->setFixedWidth(LarguraPara(chave, QString(45, QLatin1Char('9'))));
        if (ordem == 0)
            chave->setToolTip(tr("Chave NFE da Nota a que se refere a devolução"));
        m_chavesRef.append(chave);
        grade.Par(ordem, 0, tr("Chave &%1").arg(ordem + 1), chave);
        ++ordem;
    }
    grade.Fechar();

    m_listaButton = new QPushButton(tr("&Lista"), aba);
    m_listaButton->setObjectName(QStringLiteral("ListaButton"));
    m_listaButton->setToolTip(tr("Lista de chaves de referência"));
    m_listaButton->setAutoDefault(false);

    // The key of one chosen XML file into the first key.
    m_xmlImportButton = new QPushButton(tr("&XML"), grupo);
    m_xmlImportButton->setObjectName(QStringLiteral("XMLImportButton"));
    m_xmlImportButton->setToolTip(QStringLiteral("Importar chave do XML da venda de referência"));
    m_xmlImportButton->setAutoDefault(false);
    grade.Layout()->addWidget(m_xmlImportButton, 0, 2, Qt::AlignLeft);

    auto *caixa = new QHBoxLayout(aba);
    caixa->setContentsMargins(4, 4, 4, 4);
    caixa->addWidget(grupo);
    auto *botoes = new QVBoxLayout;
    botoes->addWidget(m_listaButton);

    // The items of the keys' XML files into the note.
    m_itensButton = new QPushButton(tr("&Itens pelo XML"), aba);
    m_itensButton->setObjectName(QStringLiteral("ItensButton"));
    m_itensButton->setToolTip(QStringLiteral("Importar itens de todos xmls da lista"));
    m_itensButton->setAutoDefault(false);
    botoes->addWidget(m_itensButton);
    botoes->addStretch();
    caixa->addLayout(botoes);
    return aba;
}

void TEdNotaPanel::EncadearTab()
{
    QWidget *anterior = nullptr;
    for (QWidget *campo : std::as_const(m_campos)) {
        if (anterior)
            setTabOrder(anterior, campo);
        anterior = campo;
    }
    setTabOrder(anterior, m_notaOkButton);
    setTabOrder(m_notaOkButton, m_notaCancButton);
}
