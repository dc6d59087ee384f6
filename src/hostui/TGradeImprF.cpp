#include "TGradeImprF.h"

#include "Dialogos.h"
#include "ImprimirOuPdf.h"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

QString LinhasDoCabecalho(const QString &cabecalho)
{
    return QString(cabecalho).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

Qt::Alignment Alinhamento(const TGradeImpr &conteudo, int coluna)
{
    return (conteudo.colunasADireita.contains(coluna) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

// Each column as wide as its widest text; when they do not fit the page, the widest gives way.
QList<double> LargurasDasColunas(const TGradeImpr &conteudo, const QFontMetricsF &texto, const QFontMetricsF &titulos,
                                 double folga, double largura)
{
    const TStringGrid &grade = conteudo.grade;
    QList<double> larguras(grade.ColCount(), 0.0);
    for (int coluna = 0; coluna < grade.ColCount(); ++coluna) {
        larguras[coluna] = titulos.horizontalAdvance(grade.Cells(coluna, 0));
        for (int linha = 1; linha < grade.RowCount(); ++linha)
            larguras[coluna] = std::max(larguras[coluna], texto.horizontalAdvance(grade.Cells(coluna, linha)));
        larguras[coluna] += 3 * folga;   // a margin each side, and room for the device's own rounding
    }
    double soma = 0;
    for (double l : larguras)
        soma += l;
    if (soma > largura && !larguras.isEmpty()) {
        const auto maior = std::max_element(larguras.begin(), larguras.end());
        *maior = std::max(2 * folga, *maior - (soma - largura));
    }
    return larguras;
}

} // namespace

bool DesenharGradeImpr(const TGradeImpr &conteudo, QPagedPaintDevice &dispositivo, QString *erro)
{
    QPainter pintor;
    if (!pintor.begin(&dispositivo)) {
        if (erro)
            *erro = QStringLiteral("O dispositivo de impressão não aceitou o desenho de %1.").arg(conteudo.titulo);
        return false;
    }
    const double largura = dispositivo.width(), altura = dispositivo.height();
    const double milimetro = dispositivo.logicalDpiY() / 25.4;
    QFont fonteTitulo(QStringLiteral("Sans Serif"), 13, QFont::Bold);
    QFont fonteTexto(QStringLiteral("Sans Serif"), 9);
    QFont fonteNegrito = fonteTexto;
    fonteNegrito.setBold(true);
    const QFontMetricsF metricaTexto(fonteTexto, &dispositivo), metricaNegrito(fonteNegrito, &dispositivo);
    const double linha = metricaTexto.height() * 1.4, folga = milimetro;
    const TStringGrid &grade = conteudo.grade;
    const QList<double> larguras = LargurasDasColunas(conteudo, metricaTexto, metricaNegrito, folga, largura);

    // The heading of the first page, measured before anything is drawn to count the pages.
    const QString explicacaoECabecalho = conteudo.explicacao + QLatin1String("\n\n") + LinhasDoCabecalho(conteudo.cabecalho);
    const double alturaTitulo = QFontMetricsF(fonteTitulo, &dispositivo).height() * 1.5;
    const QRectF caixaTexto = metricaTexto.boundingRect(QRectF(0, 0, largura, altura), Qt::TextWordWrap, explicacaoECabecalho);
    const double inicioPrimeira = alturaTitulo + caixaTexto.height() + linha;
    const double rodape = linha * 1.5;
    const int porPagina = std::max(1, int((altura - rodape - linha) / linha));
    const int naPrimeira = std::max(1, int((altura - rodape - inicioPrimeira - linha) / linha));
    const int linhas = grade.RowCount() - 1;
    const int paginas = 1 + (linhas > naPrimeira ? (linhas - naPrimeira + porPagina - 1) / porPagina : 0);

    const auto desenharLinha = [&](double y, int indice, const QFont &fonte) {
        pintor.setFont(fonte);
        double x = 0;
        for (int coluna = 0; coluna < larguras.size(); ++coluna) {
            const QRectF celula(x + folga, y, larguras[coluna] - 2 * folga, linha);
            const QFontMetricsF metrica(fonte, &dispositivo);
            pintor.drawText(celula, int(Alinhamento(conteudo, coluna)),
                            metrica.elidedText(grade.Cells(coluna, indice), Qt::ElideRight, celula.width()));
            x += larguras[coluna];
        }
    };

    int proxima = 1;
    for (int pagina = 1; pagina <= paginas; ++pagina) {
        if (pagina > 1 && !dispositivo.newPage()) {
            if (erro)
                *erro = QStringLiteral("O dispositivo de impressão não abriu a página %1 de %2.").arg(pagina).arg(conteudo.titulo);
            return false;
        }
        double y = 0;
        if (pagina == 1) {
            pintor.setFont(fonteTitulo);
            pintor.drawText(QRectF(0, 0, largura, alturaTitulo), Qt::AlignLeft | Qt::AlignTop, conteudo.titulo);
            pintor.setFont(fonteTexto);
            pintor.drawText(QRectF(0, alturaTitulo, largura, caixaTexto.height()), Qt::TextWordWrap, explicacaoECabecalho);
            y = inicioPrimeira;
        }
        desenharLinha(y, 0, fonteNegrito);
        y += linha;
        pintor.drawLine(QPointF(0, y), QPointF(largura, y));
        const int ate = std::min(grade.RowCount(), proxima + (pagina == 1 ? naPrimeira : porPagina));
        for (; proxima < ate; ++proxima, y += linha)
            desenharLinha(y, proxima, fonteTexto);
        pintor.setFont(fonteTexto);
        pintor.drawText(QRectF(0, altura - linha, largura, linha), Qt::AlignRight | Qt::AlignVCenter,
                        QStringLiteral("Página %1 de %2").arg(pagina).arg(paginas));
    }
    if (!pintor.end()) {
        if (erro)
            *erro = QStringLiteral("O desenho de %1 não pôde ser concluído no dispositivo de impressão.").arg(conteudo.titulo);
        return false;
    }
    return true;
}

bool GravarPdfGradeImpr(const TGradeImpr &conteudo, const QString &arquivo, QString *erro)
{
    return GravarPdf(arquivo, conteudo.titulo,
                     [&conteudo](QPagedPaintDevice &dispositivo, QString *motivo) {
                         return DesenharGradeImpr(conteudo, dispositivo, motivo);
                     },
                     erro);
}

TGradeImprF::TGradeImprF(QWidget *pai)
    : QDialog(pai), m_explicacaoLabel(new QLabel(this)), m_cabecalhoLabel(new QLabel(this)),
      m_grade(new QTableWidget(this)), m_imprimirButton(new QPushButton(QStringLiteral("Imprimir"), this)),
      m_fecharButton(new QPushButton(QStringLiteral("Fechar"), this))
{
    m_explicacaoLabel->setObjectName(QStringLiteral("ExplicacaoLabel"));
    m_explicacaoLabel->setWordWrap(true);
    m_cabecalhoLabel->setObjectName(QStringLiteral("CabecalhoLabel"));
    m_cabecalhoLabel->setTextFormat(Qt::PlainText);
    QFont negrito = m_cabecalhoLabel->font();
    negrito.setBold(true);
    m_cabecalhoLabel->setFont(negrito);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->verticalHeader()->hide();
    m_grade->horizontalHeader()->setStretchLastSection(false);
    m_imprimirButton->setObjectName(QStringLiteral("ImprimirButton"));
    m_fecharButton->setObjectName(QStringLiteral("FecharButton"));
    // Enter in the grid must not print: only a click or Alt does.
    m_imprimirButton->setAutoDefault(false);
    m_fecharButton->setAutoDefault(false);

    auto *botoes = new QHBoxLayout;
    botoes->addStretch();
    botoes->addWidget(m_imprimirButton);
    botoes->addWidget(m_fecharButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_explicacaoLabel);
    layout->addWidget(m_cabecalhoLabel);
    layout->addWidget(m_grade, 1);
    layout->addLayout(botoes);
    resize(760, 480);

    connect(m_imprimirButton, &QPushButton::clicked, this, &TGradeImprF::ImprimirClick);
    connect(m_fecharButton, &QPushButton::clicked, this, &QDialog::reject);
}

void TGradeImprF::Mostrar(const TGradeImpr &conteudo)
{
    m_conteudo = conteudo;
    setWindowTitle(conteudo.titulo);
    m_explicacaoLabel->setText(conteudo.explicacao);
    m_cabecalhoLabel->setText(LinhasDoCabecalho(conteudo.cabecalho));
    const TStringGrid &grade = conteudo.grade;
    m_grade->clear();
    m_grade->setColumnCount(grade.ColCount());
    m_grade->setRowCount(std::max(0, grade.RowCount() - 1));
    m_grade->setHorizontalHeaderLabels(grade.RowCount() > 0 ? grade.Row(0) : QStringList());
    for (int linha = 1; linha < grade.RowCount(); ++linha) {
        for (int coluna = 0; coluna < grade.ColCount(); ++coluna) {
            auto *celula = new QTableWidgetItem(grade.Cells(coluna, linha));
            celula->setTextAlignment(Alinhamento(conteudo, coluna));
            m_grade->setItem(linha - 1, coluna, celula);
        }
    }
    m_grade->resizeColumnsToContents();
    // The first text column takes the room the figures leave.
    for (int coluna = 0; coluna < grade.ColCount(); ++coluna) {
        if (Alinhamento(conteudo, coluna) & Qt::AlignLeft) {
            m_grade->horizontalHeader()->setSectionResizeMode(coluna, QHeaderView::Stretch);
            break;
        }
    }
}

void TGradeImprF::ImprimirClick()
{
    TTrabalhoImpressao trabalho;
    trabalho.nome = m_conteudo.titulo;
    trabalho.tituloImpressao = QStringLiteral("Imprimir ") + m_conteudo.titulo;
    trabalho.tituloPdf = QStringLiteral("Salvar %1 em PDF").arg(m_conteudo.titulo);
    trabalho.arquivoPdf = m_conteudo.titulo + QStringLiteral(".pdf");
    trabalho.desenhar = [this](QPagedPaintDevice &dispositivo, QString *motivo) {
        return DesenharGradeImpr(m_conteudo, dispositivo, motivo);
    };
    QString erro;
    if (!ImprimirOuPdf(this, trabalho, &erro) && !erro.isEmpty())
        MensagemErro(erro);
}
