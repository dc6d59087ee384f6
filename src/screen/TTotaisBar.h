#pragma once

#include <QFrame>

class Money;
class QLabel;

// The totals of the typed items, in one row under the item grid: each value with its caption
// above it. Its background tells whether the items agree with the totals typed in the header.
class TTotaisBar final : public QFrame
{
    Q_OBJECT

public:
    explicit TTotaisBar(QWidget *parent = nullptr);

    void SetTotProd(Money valor);
    void SetDesconto(Money valor);
    void SetICMS(Money valor);
    void SetICMSST(Money valor);
    void SetFCP(Money valor);
    void SetFCPST(Money valor);
    void SetIPI(Money valor);
    void SetOutras(Money valor);
    void SetFrete(Money valor);
    void SetSeguro(Money valor);
    void SetTot(Money valor);
    void SetNItens(int quantos);
    // Every value back to zero and the colour back to neutral.
    void Zerar();

    enum class Concordancia { Neutra, Concorda, Discorda };
    // Green when the items agree with the header, red when they do not.
    void SetConcorda(bool concorda);
    void SetNeutra();
    Concordancia Estado() const { return m_estado; }

    // "R$ 1.234,56"
    static QString FormatarValor(Money valor);

    QLabel *TotProdItensLabel() const { return m_totProd; }
    QLabel *DescontoItensLabel() const { return m_desconto; }
    QLabel *ICMSItensLabel() const { return m_icms; }
    QLabel *ICMSSTItensLabel() const { return m_icmsST; }
    QLabel *FCPItensLabel() const { return m_fcp; }
    QLabel *FCPSTItensLabel() const { return m_fcpST; }
    QLabel *IPIItensLabel() const { return m_ipi; }
    QLabel *OutrasItensLabel() const { return m_outras; }
    QLabel *FreteItensLabel() const { return m_frete; }
    QLabel *SeguroItensLabel() const { return m_seguro; }
    QLabel *TotItensLabel() const { return m_tot; }
    QLabel *NItensLabel() const { return m_nItens; }

private:
    QLabel *NovoValor(const char *nome, const QString &rotulo, const QString &dica, bool negrito = false);
    void Pintar();

    QLabel *m_totProd = nullptr;
    QLabel *m_desconto = nullptr;
    QLabel *m_icms = nullptr;
    QLabel *m_icmsST = nullptr;
    QLabel *m_fcp = nullptr;
    QLabel *m_fcpST = nullptr;
    QLabel *m_ipi = nullptr;
    QLabel *m_outras = nullptr;
    QLabel *m_frete = nullptr;
    QLabel *m_seguro = nullptr;
    QLabel *m_tot = nullptr;
    QLabel *m_nItens = nullptr;
    int m_coluna = 0;
    Concordancia m_estado = Concordancia::Neutra;
};
