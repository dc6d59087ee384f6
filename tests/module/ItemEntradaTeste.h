#pragma once

// The real screen with a note open for items, and the moves a clerk makes on the item panel.

#include "TelaTeste.h"
#include "TItemNota.h"

#include <QAbstractItemModelTester>

class ItemEntrada : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        Contexto::Atual().estacao = 3;
    }

    void abrir()
    {
        tester.reset();
        tela.reset();
        tela = AbrirTela();
        p = tela->ItemPanel();
        h = tela->EdNotaPanel();
        grade = tela->findChild<QTableView *>(QStringLiteral("ItensDBGrid"));
        tester = std::make_unique<QAbstractItemModelTester>(grade->model());
    }

    // F3 and a complete header of the type at `indice`, the focus left in the header.
    void novaNota(int indice = 0, const QString &totProds = QStringLiteral("500"))
    {
        QTest::keyClick(tela.get(), Qt::Key_F3);
        ASSERT_TRUE(h->isVisible());
        h->TipoDocComboBox()->setCurrentIndex(indice);
        h->FornecComboBox()->setCurrentIndex(h->FornecComboBox()->findText(QStringLiteral("FORNEC SP")));
        if (indice == 0)
            Digitar(h->NDocNumEditBR(), QStringLiteral("4587"));
        Digitar(h->SerieNumEditBR(), QStringLiteral("1"));
        Digitar(h->TotProdNumEditBR(), totProds);
        if (indice == 1)
            h->NFEChaveRefLabeledEdit()->setText(QString(44, QLatin1Char('3')));
        if (indice != 0)
            Digitar(h->CompraNatOpLabeledEdit(), QStringLiteral("Remessa de teste"));
    }

    // Types the text in the search field and presses Enter.
    void buscar(const QString &texto)
    {
        Digitar(p->BuscaLabeledEdit(), texto);
        QTest::keyClick(p->BuscaLabeledEdit(), Qt::Key_Return);
    }

    // Enter on the last price field.
    void completar()
    {
        TNumEditBR *ultimo = tela->ItemNota().PrecoUltimoEdit();
        ultimo->setFocus();
        // A field left with a wrong value keeps the focus: there is no Enter to press then.
        if (QApplication::focusWidget() == ultimo)
            QTest::keyClick(ultimo, Qt::Key_Return);
    }

    TNumEditBR *preco(int tabela) { return tela->PrecoEdits().at(tabela - 1); }
    TClientDataSet &itens() { return tela->RepD().Itens(); }
    QString campo(const char *nome) { return itens().FieldByName(QLatin1String(nome)).AsString(); }

    void duploClique(int linha)
    {
        const QRect r = grade->visualRect(grade->model()->index(linha, 0));
        QTest::mouseClick(grade->viewport(), Qt::LeftButton, {}, r.center());
        QTest::mouseDClick(grade->viewport(), Qt::LeftButton, {}, r.center());
    }

    std::unique_ptr<TRepF> tela;
    TItemPanel *p = nullptr;
    TEdNotaPanel *h = nullptr;
    QTableView *grade = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};
