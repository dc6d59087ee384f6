#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

// The company's A1 certificate: its PKCS#12 file and password, tried before they are kept in the
// host's configuration store under NFE_CERTIFICADO_<empresa> and NFE_CERTIFICADO_SENHA_<empresa>.
class TCertificadoF final : public QDialog
{
    Q_OBJECT
public:
    // cnpjEmpresa: the company's, to warn when the certificate belongs to someone else.
    TCertificadoF(int empresa, const QString &cnpjEmpresa, QWidget *parent = nullptr);

    QLineEdit *ArquivoEdit() const { return m_arquivo; }
    QLineEdit *SenhaEdit() const { return m_senha; }
    QLabel *ResultadoLabel() const { return m_resultado; }
    QPushButton *TestarButton() const { return m_testar; }
    QPushButton *GravarButton() const { return m_gravar; }

    static QString ChaveArquivo(int empresa);
    static QString ChaveSenha(int empresa);

    void Procurar();
    // Opens the certificate and shows its holder, CNPJ and validity; false after its message.
    bool Testar();
    // Keeps file and password once the certificate opens; false (nothing kept) otherwise.
    bool Gravar();

private:
    int m_empresa;
    QString m_cnpjEmpresa;
    QLineEdit *m_arquivo;
    QLineEdit *m_senha;
    QLabel *m_resultado;
    QPushButton *m_testar;
    QPushButton *m_gravar;
};
