#pragma once

#include "UEtiquetas.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QRadioButton;
class TConexaoSQL;

// The clerk's choices for the labels of a note: one per unit received or one per product, and a
// sheet of 3 x 10 or a roll; it shows how many labels and pages that makes.
class TEtiquetasF final : public QDialog
{
    Q_OBJECT
public:
    explicit TEtiquetasF(QList<TEtiquetaItem> itens, QWidget *parent = nullptr);

    QRadioButton *PorProdutoRadioButton() const { return m_porProduto; }
    QRadioButton *PorUnidadeRadioButton() const { return m_porUnidade; }
    QRadioButton *FolhaA4RadioButton() const { return m_folha; }
    QRadioButton *RoloRadioButton() const { return m_rolo; }
    QLabel *ResumoLabel() const { return m_resumo; }
    QPushButton *OkButton() const { return m_ok; }

    TEscolhaEtiquetas Escolha() const;

private:
    void AtualizarResumo();

    QList<TEtiquetaItem> m_itens;
    QRadioButton *m_porProduto;
    QRadioButton *m_porUnidade;
    QRadioButton *m_folha;
    QRadioButton *m_rolo;
    QLabel *m_resumo;
    QPushButton *m_ok;
};

// The labels of the note: its lines, the clerk's choices, then the print dialog, or a PDF (and
// where it went) when the machine has no printer. False when nothing was printed.
bool ImprimirEtiquetas(const TChaveNota &nota, TConexaoSQL &conexao, QWidget *pai = nullptr);
