#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QTimer;
class TClientDataSet;
class TClientManager;
class TConexaoSQL;
class TItemPanel;

// The product list that drops down below the item panel's search field while a description is
// typed: the company's active products with their maker, narrowed to those whose description,
// maker or code holds the typed text. The rows are read once each time the list drops down.
class TProdLista final : public QObject
{
    Q_OBJECT
public:
    TProdLista(TItemPanel &panel, TConexaoSQL &conexao, QObject *parent = nullptr);
    ~TProdLista() override;

    // Shows the products matching `texto`, the first one selected; hides the list when the text
    // is empty, all digits (a code or bar code being typed) or matches nothing. False when the
    // database failed (the message has been shown).
    bool Filtrar(const QString &texto, int emprCod);
    bool Visivel() const;
    void Esconder();
    // The product of the selected row; 0 when the list is hidden or empty.
    int CodigoSelecionado() const;

    // Leaving the search field closes the list a moment later, unless the focus went into it.
    void AgendaProdFech();

Q_SIGNALS:
    // A row was chosen with Enter or a double click.
    void Escolhido(int prodCod);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Linha
    {
        QString descr;
        QString fabr;
        int codigo = 0;
        QString chave;      // what the typed text is compared with
    };

    bool carregar(int emprCod);
    void ProdFechTimer();

    TItemPanel &m_panel;
    TConexaoSQL &m_conexao;
    TClientDataSet *m_produtos;
    TClientManager *m_manager;
    QTimer *m_fechTimer;
    QList<Linha> m_linhas;
    bool m_carregada = false;
};
