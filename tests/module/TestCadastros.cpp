// The registers behind the item panel's buttons.
#include "ItemEntradaTeste.h"
#include "TCadastroF.h"

#include <QAction>
#include <QTimer>
#include <QToolButton>

namespace {

// Runs `passos` on the register dialog once it is open and modal, then closes it.
void NoDialogo(std::function<void(TCadastroF &)> passos)
{
    auto *espera = new QTimer;
    espera->start(10);
    QObject::connect(espera, &QTimer::timeout, [espera, passos] {
        if (auto *dialogo = qobject_cast<TCadastroF *>(QApplication::activeModalWidget())) {
            espera->stop();
            espera->deleteLater();
            passos(*dialogo);
            dialogo->accept();
        }
    });
}

void DigitarCampo(TCadastroF &f, const char *coluna, const char *texto)
{
    auto *campo = qobject_cast<QLineEdit *>(f.Campo(QLatin1String(coluna)));
    ASSERT_TRUE(campo) << coluna;
    ::Digitar(campo, QString::fromUtf8(texto));
}

TEST_F(ItemEntrada, RegistersOpenedForTheItemAddWhatItOffers)
{
    {
        const auto f = Cadastros::Criar(QStringLiteral("ProdF"), QStringLiteral("TabProdAct"), db.conexao());
        ASSERT_TRUE(f);
        ASSERT_EQ(f->Linhas().RecordCount(), 3);
        f->Novo();
        // A product needs its description.
        f->Gravar();
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("O campo Descrição é obrigatório"));
        EXPECT_EQ(db.valor(QStringLiteral("select count(*) from prod")), QStringLiteral("3"));
        dialogos.Limpar();
        DigitarCampo(*f, "descr", "PRODUTO NOVO");
        qobject_cast<QComboBox *>(f->Campo(QStringLiteral("unid_cod")))->setCurrentIndex(1);
        qobject_cast<QComboBox *>(f->Campo(QStringLiteral("trib_cod")))->setCurrentIndex(0);
        DigitarCampo(*f, "emb_qtd", "6");
        DigitarCampo(*f, "gtin", "7890000000048");
        DigitarCampo(*f, "ncm", "2106.90.90");
        ASSERT_TRUE(f->Gravar()) << primeiraMensagem().toStdString();
        EXPECT_EQ(f->Linhas().RecordCount(), 4);
    }
    EXPECT_EQ(db.valor(QStringLiteral("select descr || '|' || emb_qtd || '|' || ncm from prod where prod_cod=4")), "PRODUTO NOVO|6.0000|21069090");

    abrir();
    novaNota(0, QStringLiteral("12"));
    // A unit added in its register is offered for the item.
    buscar(QStringLiteral("2"));
    const auto unidades = [this] { return p->UnidComboBox()->currentText() + ' ' + QString::number(p->UnidComboBox()->findText(QStringLiteral("PC"))); };
    ASSERT_EQ(unidades(), "CX -1");
    NoDialogo([](TCadastroF &f) {
        EXPECT_EQ(f.objectName(), QStringLiteral("UnidF"));
        QTest::mouseClick(f.NovoButton(), Qt::LeftButton);
        EXPECT_EQ(qobject_cast<TNumEditBR *>(f.Campo(QStringLiteral("unid_cod")))->Value(), 3.0);
        DigitarCampo(f, "sigla", "PC");
        DigitarCampo(f, "descr", "PACOTE D'AGUA");
        QTest::mouseClick(f.GravarButton(), Qt::LeftButton);
    });
    QTest::mouseClick(p->UnidButton(), Qt::LeftButton);
    // Offscreen, nothing gives the activation back once the dialog is gone.
    QApplication::setActiveWindow(tela.get());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(db.valor(QStringLiteral("select sigla || '|' || descr from unid where unid_cod=3")), QStringLiteral("PC|PACOTE D'AGUA"));
    // Offered, while the item keeps the unit it had.
    EXPECT_TRUE(unidades().startsWith("CX ") && !unidades().endsWith(" -1")) << unidades().toStdString();

    // The product registered is found and stays with the note.
    buscar(QStringLiteral("7890000000048"));
    ASSERT_EQ(p->ProdCodNumEditBR()->Value(), 4.0);
    EXPECT_EQ(p->EmbQtdNumEditBR()->text(), QStringLiteral("6,000"));
    Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("12"));
    completar();
    QTest::mouseClick(h->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse);
    abrir();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("NDOC"), 4587));
    ASSERT_EQ(itens().RecordCount(), 1);
    EXPECT_EQ(campo("prod_DESCR"), QStringLiteral("PRODUTO NOVO"));
}

TEST_F(ItemEntrada, SupplierAddedFromTheTabelasMenuIsOfferedForTheNote)
{
    abrir();
    QAction *fornecedores = tela->Acao(QStringLiteral("FornecCadAct"));
    ASSERT_TRUE(fornecedores->isEnabled());
    EXPECT_EQ(fornecedores->property("Category").toString(), QStringLiteral("Tabelas"));
    NoDialogo([](TCadastroF &f) {
        f.Novo();
        DigitarCampo(f, "nome_red", "NOVO CLIENTE");
        DigitarCampo(f, "c", "529.982.247-25");
        DigitarCampo(f, "uf", "rs");
        DigitarCampo(f, "mun_ibge_cod", "4314902");
        EXPECT_TRUE(f.Gravar());
    });
    fornecedores->trigger();
    QApplication::setActiveWindow(tela.get());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(db.valor(QStringLiteral("select c || uf || transp from fornec where fornec_cod=3")), "52998224725RSN");
    EXPECT_GE(h->FornecComboBox()->findText(QStringLiteral("NOVO CLIENTE")), 0);
}

TEST_F(TelaTeste, CompanyAndSupplierRegistersRefuseEachMistakeOnce)
{
    struct Caso
    {
        const char *form, *acao, *coluna, *texto, *mensagem;
    };
    const Caso casos[] = {
        {"EmprF", "TabEmprAct", "cnpj", "11222333000182", "CNPJ inválido: confira os dígitos verificadores"},
        {"EmprF", "TabEmprAct", "cnpj", "12ABC34501DE53", "CNPJ inválido: confira os dígitos verificadores"},
        {"FornecF", "TabFornecAct", "c", "52998224752", "CPF/CNPJ inválido: confira os dígitos verificadores"},
        {"FornecF", "TabFornecAct", "c", "11111111111", "CPF/CNPJ inválido: confira os dígitos verificadores"},
        {"FornecF", "TabFornecAct", "uf", "XX", "UF inválida: indique a sigla de um dos 27 estados"},
        {"EmprF", "TabEmprAct", "mun_ibge_cod", "4106902",
         "O código IBGE do município não é de SP: os municípios de SP começam por 35"},
        {"EmprF", "TabEmprAct", "mun_ibge_cod", "355030", "Código IBGE do município inválido: indique os 7 dígitos"},
        {"FornecF", "TabFornecAct", "cep", "0130500", "CEP inválido: indique os 8 dígitos"},
    };
    const auto tabela = [this](const QString &form) {
        return db.valor(form == QLatin1String("EmprF")
                            ? QStringLiteral("select list(cnpj || uf || mun_ibge_cod || cep, ';') from empr")
                            : QStringLiteral("select list(c || uf || mun_ibge_cod || cep, ';') from fornec"));
    };
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.texto);
        const auto f = Cadastros::Criar(QLatin1String(caso.form), QLatin1String(caso.acao), db.conexao());
        ASSERT_TRUE(f);
        const QString antes = tabela(f->objectName());
        dialogos.Limpar();
        DigitarCampo(*f, caso.coluna, caso.texto);
        EXPECT_FALSE(f->Gravar());
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QString::fromUtf8(caso.mensagem));
        EXPECT_EQ(tabela(f->objectName()), antes);
    }

    // The alphanumeric CNPJ, a CPF, and a new company starting as Regime Normal.
    dialogos.Limpar();
    const auto fornec = Cadastros::Criar(QStringLiteral("FornecF"), QStringLiteral("TabFornecAct"), db.conexao());
    DigitarCampo(*fornec, "c", "52998224725");
    ASSERT_TRUE(fornec->Gravar()) << primeiraMensagem().toStdString();
    const auto empr = Cadastros::Criar(QStringLiteral("EmprF"), QStringLiteral("TabEmprAct"), db.conexao());
    empr->Novo();
    DigitarCampo(*empr, "raz", "Nova Loja Ltda");
    DigitarCampo(*empr, "cnpj", "12abc34501de35");
    DigitarCampo(*empr, "uf", "pr");
    DigitarCampo(*empr, "mun_ibge_cod", "4106902");
    ASSERT_TRUE(empr->Gravar()) << primeiraMensagem().toStdString();
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(db.valor(QStringLiteral("select c from fornec where fornec_cod=1")), "52998224725");
    EXPECT_EQ(db.valor(QStringLiteral("select cnpj || uf || mun_ibge_cod || crt from empr where empr_cod=3")),
              "12ABC34501DE35PR41069023");
}

} // namespace
