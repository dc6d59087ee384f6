#include "DialogosQt.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cmath>

static QString titulo(TipoMensagem tipo)
{
    switch (tipo) {
    case TipoMensagem::Erro: return QStringLiteral("Erro");
    case TipoMensagem::Info: return QStringLiteral("Informação");
    case TipoMensagem::Aviso: return QStringLiteral("Aviso");
    case TipoMensagem::Proib: return QStringLiteral("Operação não permitida");
    case TipoMensagem::Simples: break;
    }
    return QStringLiteral("Pavrel");
}

static QMessageBox::Icon icone(TipoMensagem tipo)
{
    switch (tipo) {
    case TipoMensagem::Erro: return QMessageBox::Critical;
    case TipoMensagem::Info: return QMessageBox::Information;
    case TipoMensagem::Aviso:
    case TipoMensagem::Proib: return QMessageBox::Warning;
    case TipoMensagem::Simples: break;
    }
    return QMessageBox::NoIcon;
}

void TDialogosQt::Mensagem(TipoMensagem tipo, const QString &texto)
{
    QMessageBox box(icone(tipo), titulo(tipo), texto, QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool TDialogosQt::Perguntar(TipoPergunta tipo, const QString &texto)
{
    QMessageBox box(QMessageBox::Question, QStringLiteral("Confirmação"), texto,
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(QStringLiteral("&Sim"));
    box.button(QMessageBox::No)->setText(QStringLiteral("&Não"));
    // Deleting is never the default answer.
    box.setDefaultButton(tipo == TipoPergunta::Deletar ? QMessageBox::No : QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

// "description|pattern|description|pattern", patterns split by ';', as the module writes its
// filters, into the file dialog's "description (pattern);;...".
static QString FiltroQt(const QString &filtro)
{
    if (!filtro.contains(u'|'))
        return filtro;
    const QStringList partes = filtro.split(u'|');
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2)
        filtros << QStringLiteral("%1 (%2)").arg(partes.at(i), QString(partes.at(i + 1)).replace(u';', u' '));
    return filtros.join(QStringLiteral(";;"));
}

QString TDialogosQt::SelecionarArquivo(const QString &titulo_, const QString &pasta, const QString &filtro,
                                       bool salvar)
{
    QWidget *pai = QApplication::activeWindow();
    return salvar ? QFileDialog::getSaveFileName(pai, titulo_, pasta, FiltroQt(filtro))
                  : QFileDialog::getOpenFileName(pai, titulo_, pasta, FiltroQt(filtro));
}

bool TDialogosQt::PerguntarQtd(const QString &titulo_, const QString &texto, double maximo, double &valor)
{
    // A whole number, as the "#######0" pattern of the question asks.
    const int limite = int(std::min(std::floor(maximo), 99999999.0));
    QInputDialog caixa(QApplication::activeWindow());
    caixa.setWindowTitle(titulo_);
    caixa.setLabelText(texto);
    caixa.setInputMode(QInputDialog::IntInput);
    caixa.setIntRange(0, std::max(limite, 0));
    caixa.setIntValue(int(std::clamp(valor, 0.0, double(std::max(limite, 0)))));
    caixa.setOkButtonText(QStringLiteral("OK"));
    caixa.setCancelButtonText(QStringLiteral("Cancelar"));
    if (caixa.exec() != QDialog::Accepted)
        return false;
    valor = caixa.intValue();
    return true;
}
