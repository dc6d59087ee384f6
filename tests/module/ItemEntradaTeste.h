#pragma once

// The real screen with a note open for items, and the moves a clerk makes on the item panel.

#include "TelaTeste.h"
#include "DialogosTeste.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TItemNota.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"
#include "TestDatabase.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

class ItemEntrada : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        Contexto::Atual().estacao = 3;
    }
    void TearDown() override { Contexto::Atual().estacao = 1; }

    void abrir()
    {
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
            digitar(h->NDocNumEditBR(), QStringLiteral("4587"));
        digitar(h->SerieNumEditBR(), QStringLiteral("1"));
        digitar(h->TotProdNumEditBR(), totProds);
        if (indice == 1)
            h->NFEChaveRefLabeledEdit()->setText(QString(44, QLatin1Char('3')));
        if (indice != 0)
            digitar(h->CompraNatOpLabeledEdit(), QStringLiteral("Remessa de teste"));
    }

    void digitar(QLineEdit *campo, const QString &texto)
    {
        campo->setFocus();
        campo->selectAll();
        QTest::keyClicks(campo, texto);
    }

    // Types the text in the search field and presses Enter.
    void buscar(const QString &texto)
    {
        digitar(p->BuscaLabeledEdit(), texto);
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
    QString foco() const { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(); }
    TClientDataSet &itens() { return tela->RepD().Itens(); }

    void duploClique(int linha)
    {
        const QRect r = grade->visualRect(grade->model()->index(linha, 0));
        QTest::mouseClick(grade->viewport(), Qt::LeftButton, {}, r.center());
        QTest::mouseDClick(grade->viewport(), Qt::LeftButton, {}, r.center());
    }

    int linhaDoProduto(int prodCod)
    {
        for (int linha = 0; linha < itens().RecordCount(); ++linha)
            if (itens().ValueAt(linha, itens().FieldByName(QStringLiteral("PROD_COD")).Index()).toInt() == prodCod)
                return linha;
        return -1;
    }

    QString staged()
    {
        QStringList linhas;
        const auto q = db.conexao().Ab(QStringLiteral(
            "select i.ordem, i.prod_cod, i.prod_cod_deles, i.emb_qtd, i.qtd_embs, i.custo_tot, i.cfop, i.ncm, "
            "i.unid_cod, i.trib_cod, p.tab_preco_cod, p.preco from compra_item_tmp i join compra_item_tmp_precos p "
            "on p.compra_item_tmp_cod=i.compra_item_tmp_cod order by i.ordem, p.tab_preco_cod"));
        for (q->First(); !q->Eof(); q->Next()) {
            QStringList campos;
            for (int c = 0; c < q->FieldCount(); ++c)
                campos << (QList<int>{3, 4, 5, 11}.contains(c) ? q->Fields(c).AsMoney().toString() : q->Fields(c).AsString());
            linhas << campos.join(QLatin1Char('|'));
        }
        return linhas.join(QLatin1Char('\n'));
    }

    TestDatabase db;
    DialogosTeste dialogos;
    std::unique_ptr<TRepF> tela;
    TItemPanel *p = nullptr;
    TEdNotaPanel *h = nullptr;
    QTableView *grade = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};
