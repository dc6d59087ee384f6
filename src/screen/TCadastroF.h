#pragma once

#include "TCadastroDBI.h"

#include <QDialog>
#include <QList>
#include <QString>

#include <memory>

class QLabel;
class QPushButton;
class QTableView;
class TClientDataSet;
class TClientManager;
class TConexaoSQL;

// A small register editor: a grid over the table, and below it one field per column with
// "Novo", "Gravar" and "Excluir". Every statement splices its values through the value
// functions; a database failure is shown with the driver's text and changes nothing on screen.
class TCadastroF final : public QDialog
{
    Q_OBJECT
public:
    TCadastroF(TDefCadastro def, TConexaoSQL &conexao, QWidget *parent = nullptr);
    ~TCadastroF() override;

    const TDefCadastro &Def() const { return m_def; }
    TClientDataSet &Linhas() { return *m_linhas; }
    // The field of a column, by column name (objectName "Campo_<column>").
    QWidget *Campo(const QString &coluna) const;
    QPushButton *NovoButton() const { return m_novo; }
    QPushButton *GravarButton() const { return m_gravar; }
    QPushButton *ExcluirButton() const { return m_excluir; }

    // Reads the table again, keeping the cursor on `codigo` when given.
    bool Carregar(int codigo = 0);
    // Empty fields with the next free code.
    void Novo();
    // Inserts or updates the row of the fields; false when refused or when the database failed.
    bool Gravar();
    // Deletes the current row after the delete question.
    bool Excluir();
    // Whether anything was written since the dialog opened.
    bool Alterado() const { return m_alterado; }

private:
    void montar();
    void linhaParaCampos();
    QString valorSql(const TColunaCadastro &coluna) const;
    int codigoDosCampos() const;
    // The register's own checks: false after their one message.
    bool verificado();

    TDefCadastro m_def;
    TConexaoSQL &m_conexao;
    TClientDataSet *m_linhas;
    TClientManager *m_manager;
    QTableView *m_grade = nullptr;
    QList<QWidget *> m_campos;
    QPushButton *m_novo = nullptr;
    QPushButton *m_gravar = nullptr;
    QPushButton *m_excluir = nullptr;
    bool m_alterado = false;
};

namespace Cadastros {

// The editor of a register, not shown; null for names it does not know.
std::unique_ptr<TCadastroF> Criar(const QString &form, const QString &acao, TConexaoSQL &conexao,
                                  QWidget *parent = nullptr);
// Opens the editor as a modal dialog; true when something was written in it.
bool Abrir(const QString &form, const QString &acao, TConexaoSQL &conexao, QWidget *parent = nullptr);

} // namespace Cadastros
