#include "DialogosQt.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

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

QString TDialogosQt::SelecionarArquivo(const QString &titulo_, const QString &pasta, const QString &filtro,
                                       bool salvar)
{
    QWidget *pai = QApplication::activeWindow();
    return salvar ? QFileDialog::getSaveFileName(pai, titulo_, pasta, filtro)
                  : QFileDialog::getOpenFileName(pai, titulo_, pasta, filtro);
}
