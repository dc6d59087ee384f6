#include "TRepF_KeyDown_F6.h"

#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"
#include "UTipoDoc.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

// Fields the screen computes: never typed, whatever the type.
bool calculado(const TItemPanel &p, const QWidget *w)
{
    return w == p.QtdCompradaNumEditBR() || w == p.CustoAtualNumEditBR() || w == p.CustoNumEditBR()
           || w == p.PrecoAtualNumEditBR() || w == p.PrecoPromoNumEditBR();
}

void somenteLeitura(TNumEditBR *edit, bool sim)
{
    edit->SetReadOnlyLook(sim);
}

} // namespace

bool TRepF_KeyDown_F6::Pode(const TRepF &f)
{
    return !f.NotaAtualBaixada() || f.CabecState() == TDataSetState::Insert;
}

void TRepF_KeyDown_F6::AvancaTipoDocComboBox(TRepF &f)
{
    QComboBox *combo = f.TipoDocComboBox();
    if (combo->count() == 0)
        return;
    combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
}

void TRepF_KeyDown_F6::LiberaTodos(TRepF &f)
{
    TItemPanel &p = *f.ItemPanel();
    for (TNumEditBR *edit : p.findChildren<TNumEditBR *>()) {
        edit->setVisible(true);
        somenteLeitura(edit, calculado(p, edit));
    }
    for (QWidget *w : p.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        w->setEnabled(true);
}

void TRepF_KeyDown_F6::AjustaControles(TRepF &f, int tipoCod)
{
    TItemPanel &p = *f.ItemPanel();
    // Costs and sale prices are only recorded when an entry (or a production note) is posted.
    const bool formaPreco = tipoCod == TipoDoc::Entrada || tipoCod == TipoDoc::Producao;
    somenteLeitura(p.MargemNumEditBR(), !formaPreco);
    somenteLeitura(p.PrecoNumEditBR(), !formaPreco);
    for (TNumEditBR *preco : f.PrecoEdits())
        somenteLeitura(preco, !formaPreco);
    // A production item needs a cost only where the store asks for one.
    p.CustoTotItemNumEditBR()->setVisible(tipoCod != TipoDoc::Producao || f.ProducCustoExige());
}

void TRepF_KeyDown_F6::Exec(TRepF &f, bool avanca)
{
    if (Pode(f) && avanca)
        AvancaTipoDocComboBox(f);
    const int tipo = f.TipoDocSelecionado();
    LiberaTodos(f);
    AjustaControles(f, tipo);
    const QString texto = f.TipoDocComboBox()->currentText().trimmed();
    QString nome;
    for (const TipoDoc::TTipoDoc &t : TipoDoc::Tabela()) {
        if (texto == QLatin1String(t.texto))
            nome = QString::fromLatin1(t.nomeCurto);
    }
    f.TipoDocLabel()->setText(nome);
}
