#include "ExecutarModal.h"
#include "TBaixaNFePorChave.h"
#include "TBaixarViaChaveF.h"
#include "TNfeChavesRefListaF.h"
#include "TelaTeste.h"
#include "UNfeChavesRefListaExec.h"
#include "UPergChaveF.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

QString K(char c) { return QString(44, QLatin1Char(c)); }

const QString Maximo = QStringLiteral("O máximo aceito é de cinco chaves");
const QString Tamanho = QStringLiteral("A chave deve ter 44 caracteres");

// Writes an empty file, folders included, under the fiscal folder; gives its path.
QString criar(const QString &pasta, const QString &relativo)
{
    QDir(pasta).mkpath(QFileInfo(relativo).path());
    QFile arquivo(QDir(pasta).filePath(relativo));
    EXPECT_TRUE(arquivo.open(QIODevice::WriteOnly)) << arquivo.fileName().toStdString();
    return arquivo.fileName();
}

// Every row of the grid, the title row first.
QStringList linhasDe(const TNfeChavesRefListaF &lista)
{
    QStringList textos;
    for (int i = 0; i < lista.Grid()->rowCount(); ++i)
        textos << (lista.Grid()->item(i, 0) ? lista.Grid()->item(i, 0)->text() : QStringLiteral("<nulo>"));
    return textos;
}

// The authority as the key-download dialog reaches it: saves the document under its own name.
class BaixaTeste final : public TBaixaNFePorChave
{
public:
    QString Baixar(const QString &, const QString &pasta, QString &) override { return criar(pasta, QStringLiteral("nota 77.xml")); }
};

class ChavesRef : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().pastaFiscal = fiscal.path();
    }
    void TearDown() override
    {
        TBaixaNFePorChave::Definir(nullptr);
        Contexto::Atual().pastaFiscal.clear();
        EXPECT_EQ(roteiro.Pendentes() + roteiro.SemResposta(), 0);
    }

    std::unique_ptr<TNfeChavesRefListaF> abrir(const QStringList &chaves)
    {
        TArgsChavesRef args;
        args.emprCodSelecionada = 1;
        args.conexao = &db.conexao();
        auto lista = std::make_unique<TNfeChavesRefListaF>(args);
        lista->PreencherLista(chaves);
        return lista;
    }
    void responderPerg(const QString &digitado, bool ok = true)
    {
        roteiro.Responder([digitado, ok](QDialog &d) {
            auto &perg = dynamic_cast<TPergChaveF &>(d);
            perg.ChaveEdit()->setText(digitado);
            ok ? perg.accept() : perg.reject();
            return perg.result();
        });
    }

    // The one information shown, or empty when none was.
    QString info() const { return dialogos.Mensagens().isEmpty() ? QString() : dialogos.UnicaMensagem(TipoMensagem::Info); }

    TestDatabase db;
    DialogosTeste dialogos;
    TRoteiroModal roteiro;
    QTemporaryDir fiscal;
};

TEST_F(ChavesRef, EmptyListFillsItsBlankRowAndStopsAtFiveBeforeAnyDialog)
{
    auto lista = abrir({QString(), QString()});
    EXPECT_EQ(linhasDe(*lista), (QStringList{"Chaves", ""}));
    lista->ExclActExecute();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), "Nenhuma chave cadastrada");

    lista->CarregarTitulo();
    EXPECT_EQ(lista->TituloLabel()->text(), "Loja Teste Matriz Ltda\nCNPJ: 11.222.333/0001-81");

    const struct { QString chave; int linhas; QString mensagem; } passos[] = {
        {K('1'), 2, {}},
        {K('1'), 2, "Chave já estava cadastrada"},
        {"Chaves", 2, "Chave já estava cadastrada"},     // the title row counts as a key
        {K('2'), 3, {}}, {K('3'), 4, {}}, {K('4'), 5, {}}, {K('5'), 6, {}},
        {K('6'), 6, Maximo},
        {K('5'), 6, "Chave já estava cadastrada"},       // the duplicate test comes first
    };
    for (const auto &p : passos) {
        dialogos.Limpar();
        lista->InserirStr(p.chave);
        EXPECT_EQ(lista->Grid()->rowCount(), p.linhas) << p.chave.toStdString();
        EXPECT_EQ(info(), p.mensagem);
    }

    // A full list refuses before any dialog opens.
    QGuiApplication::clipboard()->setText(K('6'));
    for (QAction *acao : {lista->InsAct(), lista->ColarAct(), lista->ImportXmlAct()}) {
        dialogos.Limpar();
        // The second run only happens if the first one enabled the action again.
        acao->trigger();
        acao->trigger();
        EXPECT_EQ(dialogos.Mensagens(), QList<DialogosTeste::Registro>(2, {TipoMensagem::Info, Maximo}))
            << acao->objectName().toStdString();
    }
    EXPECT_EQ(lista->Chaves(), (QStringList{K('1'), K('2'), K('3'), K('4'), K('5')}));
}

TEST_F(ChavesRef, InserirTakesTheDigitsOfTheFileTheDownloadDialogFound)
{
    auto lista = abrir({});
    // The user types the key into the download dialog and presses OK.
    const auto inserir = [&](const QString &digitado) {
        roteiro.Responder([digitado](QDialog &d) {
            QTest::keyClicks(dynamic_cast<TBaixarViaChaveF &>(d).ChaveEdit(), digitado);
            d.accept();
            return d.result();
        });
        lista->InsActExecute();
    };
    criar(fiscal.path(), QStringLiteral("2025/06/35250611222333ABCD81550010000012341000012345.xml"));
    // Typed in lower case with blanks, as pasted from a DANFE.
    inserir(QStringLiteral("3525 0611 2223 33ab cd81 5500 1000 0012 3410 0001 2345"));
    // Fetched from the authority under a name with few digits: inserted all the same.
    BaixaTeste baixa;
    TBaixaNFePorChave::Definir(&baixa);
    inserir(K('7'));
    EXPECT_EQ(lista->Chaves(), (QStringList{"3525061122233381550010000012341000012345", "77"}));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().first().texto.toStdString();
}

TEST_F(ChavesRef, DownloadDialogSearchesTheFiscalFolderInOrder)
{
    const QString k = K('4');
    const struct { const char *caso; QStringList arquivos; QString achado; } casos[] = {
        {"bare_name_in_subfolder", {"a/b/" + k + ".xml"}, "a/b/" + k + ".xml"},
        {"nfe_suffix_before_bare", {k + ".xml", "x/" + k + "-nfe.xml"}, "x/" + k + "-nfe.xml"},
        {"prefix_last", {"NFe" + k + ".xml", "z/" + k + ".xml"}, "z/" + k + ".xml"},
        {"shallower_wins", {"b/c/" + k + ".xml", "d/" + k + ".xml"}, "d/" + k + ".xml"},
        {"other_case", {"nfe" + k.toLower() + ".XML"}, "nfe" + k + ".XML"},
        {"missing", {K('5') + ".xml"}, {}},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.caso);
        QTemporaryDir pasta;
        Contexto::Atual().pastaFiscal = pasta.path();
        for (const QString &a : c.arquivos)
            criar(pasta.path(), a);
        dialogos.Limpar();
        TBaixarViaChaveF baixar({}, {}, {}, nullptr, {}, {}, 0);
        baixar.show();
        Digitar(baixar.ChaveEdit(), k);
        QTest::keyClick(baixar.ChaveEdit(), Qt::Key_Return);
        EXPECT_TRUE(baixar.isVisible());
        EXPECT_EQ(baixar.NomeArqXMLLabeledEdit()->text(), c.achado.isEmpty() ? QString() : pasta.path() + u'/' + c.achado);
        EXPECT_EQ(info(), c.achado.isEmpty() ? QStringLiteral("O XML da NF-e %1 não foi encontrado na pasta %2/ nem em suas subpastas.").arg(k, pasta.path()) : QString());
        baixar.accept();
        EXPECT_EQ(baixar.result() == QDialog::Accepted, !c.achado.isEmpty());
    }
}

TEST_F(ChavesRef, PergTrimsColarTakesExactly44AlterarMayDuplicateExclAsksFirst)
{
    const struct { QString digitado; bool ok; QString chave; QString mensagem; } casos[] = {
        {"  " + K('8') + " ", true, K('8'), {}}, {K('8').left(43), true, "antes", Tamanho}, {K('8'), false, "antes", {}},
    };
    for (const auto &c : casos) {
        dialogos.Limpar();
        QString chave = QStringLiteral("antes");
        responderPerg(c.digitado, c.ok);
        EXPECT_EQ(Perg(chave), c.chave != "antes") << c.digitado.toStdString();
        EXPECT_EQ(chave + info(), c.chave + c.mensagem);
    }

    auto lista = abrir({K('1'), K('2'), K('3')});
    lista->Grid()->setCurrentCell(2, 0);
    responderPerg(K('1'));
    lista->AltActExecute();
    EXPECT_EQ(lista->Chaves(), (QStringList{K('1'), K('1'), K('3')}));
    for (const bool resposta : {false, true}) {
        dialogos.Responder(resposta);
        lista->ExclActExecute();
    }
    EXPECT_EQ(lista->Chaves(), (QStringList{K('1'), K('3')}));

    // Colar takes the clipboard's first line when it has exactly 44 characters.
    for (const QString &area : {K('4') + " \nx", QString(), K('4') + "\r\n" + K('5')}) {
        dialogos.Limpar();
        QGuiApplication::clipboard()->setText(area);
        lista->ColarActExecute();
        EXPECT_EQ(info(), area.contains(u'\r') ? QString() : Tamanho) << area.toStdString();
    }
    EXPECT_EQ(lista->Chaves(), (QStringList{K('1'), K('3'), K('4')}));
}

using ChavesRefTela = TelaTeste;

TEST_F(ChavesRefTela, ListaCompactsTheKeysOnCancelAndTakesTheListOnOk)
{
    auto tela = AbrirTela();
    TEdNotaPanel *p = tela->EdNotaPanel();
    QTest::keyClick(tela.get(), Qt::Key_F3);
    ASSERT_TRUE(p->isVisible());
    // A key with the letters of an alphanumeric CNPJ.
    const QString comLetras = QStringLiteral("3525AB") + QString(38, QLatin1Char('1'));
    p->NFEChaveRef3LabeledEdit()->setText(comLetras);
    p->NFEChaveRef5LabeledEdit()->setText(K('5'));

    TRoteiroModal roteiro;
    QStringList vistas;
    roteiro.Responder([&](QDialog &d) {
        vistas = linhasDe(dynamic_cast<TNfeChavesRefListaF &>(d));
        return int(QDialog::Rejected);
    });
    QTest::mouseClick(p->ListaButton(), Qt::LeftButton);
    EXPECT_EQ(vistas, (QStringList{"Chaves", comLetras, K('5')}));
    QStringList depois;
    for (QLineEdit *e : p->ChavesRef())
        depois << e->text();
    EXPECT_EQ(depois, (QStringList{comLetras, K('5'), "", "", ""}));

    roteiro.Responder([&](QDialog &d) {
        auto &lista = dynamic_cast<TNfeChavesRefListaF &>(d);
        dialogos.Responder(true);
        lista.ExclActExecute();
        return int(QDialog::Accepted);
    });
    QTest::mouseClick(p->ListaButton(), Qt::LeftButton);
    EXPECT_EQ(p->NFEChaveRefLabeledEdit()->text() + '|' + p->NFEChaveRef2LabeledEdit()->text(), K('5') + '|');
    EXPECT_EQ(roteiro.Pendentes() + roteiro.SemResposta(), 0);
}

} // namespace
