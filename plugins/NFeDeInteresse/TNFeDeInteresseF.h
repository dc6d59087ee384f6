#pragma once

#include "TDistribuicaoNFe.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;
class TConexaoSQL;

// The documents addressed to the company: fetch the new ones, list what is on file and send
// the recipient's manifestation for the chosen one.
class TNFeDeInteresseF final : public QDialog
{
public:
    TNFeDeInteresseF(TConexaoSQL &conexao, int empresa, QWidget *parent = nullptr);

private:
    void Preencher();
    void BaixarNovas();
    void Manifestar(TManifestacao tipo, const QString &titulo);
    void AbrirPasta();
    void Ocupado(bool ocupado);

    TDistribuicaoNFe m_distribuicao;
    QList<TNFeDeInteresse> m_documentos;
    QTableWidget *m_grade = nullptr;
    QLabel *m_situacao = nullptr;
    QList<QPushButton *> m_botoes;
};
