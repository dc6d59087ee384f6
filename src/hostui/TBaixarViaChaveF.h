#pragma once

#include "TnfeProc.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// The host's key-download dialog: the user types or pastes an NF-e key and the dialog finds its
// XML in the fiscal folder or its subfolders (or has the registered TBaixaNFePorChave fetch it),
// leaving the file's path in NomeArqXMLLabeledEdit. OK accepts only once a file was found.
class TBaixarViaChaveF final : public QDialog
{
    Q_OBJECT
public:
    // What the caller hands over from the host's context; kept for the fetch from the authority.
    TBaixarViaChaveF(const QString &database, const QString &uf, const QString &textoContexto1,
                     const QMetaObject *classeTela, const QString &textoContexto2,
                     const TPess_Emit &emitente, int valorContexto, QWidget *parent = nullptr);

    QLineEdit *ChaveEdit() const { return m_chaveEdit; }
    QLineEdit *NomeArqXMLLabeledEdit() const { return m_nomeArqXML; }

    // Looks for the typed key's XML; true when NomeArqXMLLabeledEdit holds its path.
    bool Procurar();

    // The file names tried for a key, in order.
    static QStringList NomesDoXML(const QString &chave);

    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void chaveEditada(const QString &texto);

    QString m_database, m_uf, m_textoContexto1, m_textoContexto2;
    const QMetaObject *m_classeTela = nullptr;
    TPess_Emit m_emitente;
    int m_valorContexto = 0;

    QLineEdit *m_chaveEdit = nullptr;
    QLineEdit *m_nomeArqXML = nullptr;
    QLabel *m_situacao = nullptr;
    QPushButton *m_procurarButton = nullptr;
};
