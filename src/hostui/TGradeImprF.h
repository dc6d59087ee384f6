#pragma once

#include "TStringGrid.h"

#include <QDialog>
#include <QList>
#include <QString>

class QLabel;
class QPagedPaintDevice;
class QPushButton;
class QTableWidget;

// What a read-only grid screen shows and prints.
struct TGradeImpr
{
    QString titulo;             // the caption, and the print-out's title
    QString explicacao;         // what the list is
    QString cabecalho;          // lines separated by CR LF
    TStringGrid grade;          // the column titles in row 0
    QList<int> colunasADireita; // numbers, aligned right
};

// The print-out on pages: title, explanation, header and the table; each page break repeats the
// column titles, and every page says "Página n de m". False with the reason in erro.
bool DesenharGradeImpr(const TGradeImpr &conteudo, QPagedPaintDevice &dispositivo, QString *erro);
// The same into a PDF file, without asking anything.
bool GravarPdfGradeImpr(const TGradeImpr &conteudo, const QString &arquivo, QString *erro);

// The host's grid screen with a print button: the explanation, the header, the table, and
// "Imprimir" (a printer, or a PDF when the machine has none) and "Fechar"; Esc closes.
class TGradeImprF : public QDialog
{
    Q_OBJECT

public:
    explicit TGradeImprF(QWidget *pai = nullptr);

    void Mostrar(const TGradeImpr &conteudo);
    const TGradeImpr &Conteudo() const { return m_conteudo; }

    QLabel *ExplicacaoLabel() const { return m_explicacaoLabel; }
    QLabel *CabecalhoLabel() const { return m_cabecalhoLabel; }
    QTableWidget *Grade() const { return m_grade; }
    QPushButton *ImprimirButton() const { return m_imprimirButton; }
    QPushButton *FecharButton() const { return m_fecharButton; }

    // A failure to print or to write the file is shown as an error; giving up says nothing.
    void ImprimirClick();

private:
    TGradeImpr m_conteudo;
    QLabel *m_explicacaoLabel;
    QLabel *m_cabecalhoLabel;
    QTableWidget *m_grade;
    QPushButton *m_imprimirButton;
    QPushButton *m_fecharButton;
};
