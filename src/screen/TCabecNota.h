#pragma once

#include "TCompraCabecDBI.h"

#include <QHash>
#include <QObject>

#include <functional>

class QWidget;
class TClientDataSet;
class TConexaoSQL;
class TEdNotaPanel;

// The note header on its panel: clearing and filling the fields, the checks run when a field is
// left and again on confirmation, the header total, and storing the note.
class TCabecNota final : public QObject
{
    Q_OBJECT
public:
    TCabecNota(TEdNotaPanel *panel, TClientDataSet &notas, TConexaoSQL &conexao, QObject *parent = nullptr);

    void SetIPISomar(bool somar) { m_ipiSomar = somar; }

    void ZerarNota();
    // The stored note into the fields; false (with the reason shown) when it cannot be read.
    bool CamposParaControlesNota(const TChaveNota &chave);
    TCompraCabecDBI ControlesParaCamposNota() const;
    // The note being inserted or altered; zeros while none.
    const TChaveNota &Chave() const { return m_chave; }
    // The company chosen in the combo, else the host's current one; 0 only when there is none.
    int EmprCod() const;
    void CalcTotNota();

    // Each answers true when the field is acceptable, or when the panel is hidden or the focus
    // went to its cancel button; otherwise shows its message once and focuses the field.
    bool FornecAceito();
    bool DtDocAceita();
    bool HSaiAceita();
    bool NDocAceito();
    bool NDocUnicoAceito();
    bool SerieAceita();
    bool TotProdAceito();
    bool ChaveRefAceita();
    bool FreteAceito();
    bool NatOpAceita();
    bool CFOPAceito();
    bool TotaisAceitos();
    // The field checks in order, stopping at the first refusal.
    bool DocAceito();

    bool NotaConfirmIns();
    bool NotaConfirmAlt();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool podeChecar() const;
    bool recusar(QWidget *campo, void (*mensagem)(const QString &), const QString &texto);
    int indiceTipo() const;
    int tipoCod() const;

    TEdNotaPanel *m_panel;
    TClientDataSet &m_notas;
    TConexaoSQL &m_conexao;
    bool m_ipiSomar = true;
    bool m_checando = false;
    TChaveNota m_chave;
    QHash<QObject *, std::function<bool()>> m_checkAoSair;
};
