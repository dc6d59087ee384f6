// Typing 100 items imported from a supplier's XML into the real item panel: each item goes
// through the panel's own search, price calculation and insertion, as a clerk's would. The
// documented pauses are upper bounds that end when the panel is done, so 100 items take seconds.
#include "BancoTeste.h"
#include "TAndamento.h"
#include "Database.h"
#include "GeradorNFe.h"
#include "Medicao.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TEdNotaPanel.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"
#include "URepF_ImportItens.h"
#include "URepF_ImportItensF.h"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <memory>

namespace {

constexpr int Itens = 100;
constexpr int Fornec = 1;

QStringList Dados()
{
    QStringList dados = Medicao::CadastrosDaLoja();
    dados << QStringLiteral(
        "execute block as\n"
        "declare i integer = 1;\n"
        "begin\n"
        "  while (i <= %1) do\n"
        "  begin\n"
        "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm)\n"
        "      values (:i, 'PRODUTO ' || :i, 1, 1, 1, 0, '22021000');\n"
        "    insert into prod_compl (prod_cod, empr_cod, margem, ativo) values (:i, 1, 30, 'S');\n"
        "    insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (1, :i, 0, 10);\n"
        "    insert into prod_norig (norig, prod_cod, fornec_cod) values ('F' || lpad(:i, 3, '0'), :i, %2);\n"
        "    i = i + 1;\n"
        "  end\n"
        "end").arg(Itens).arg(Fornec);
    return dados;
}

bool AguardarLista(TRepF &tela)
{
    if (tela.ListaFoiCarregada())
        return true;
    QEventLoop laco;
    QObject::connect(&tela, &TRepF::ListaCarregada, &laco, &QEventLoop::quit);
    QTimer::singleShot(10000, &laco, &QEventLoop::quit);
    laco.exec();
    return tela.ListaFoiCarregada();
}

// A new purchase with its header complete, ready for items.
void AbrirNota(TRepF &tela)
{
    tela.NotaInsActExecute();
    TEdNotaPanel *h = tela.EdNotaPanel();
    h->TipoDocComboBox()->setCurrentIndex(0);
    h->FornecComboBox()->setCurrentIndex(h->FornecComboBox()->findData(Fornec));
    h->NDocNumEditBR()->SetValue(4587);
    h->SerieNumEditBR()->SetValue(1);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    BancoTeste::FixarRelogio();
    QTemporaryDir pasta;
    QTextStream out(stdout);
    TDadosBanco modelo, banco;
    modelo.database = pasta.filePath(QStringLiteral("modelo.fdb"));
    banco.database = pasta.filePath(QStringLiteral("digitar.fdb"));
    QString erro;
    if (!BancoTeste::Criar(modelo, Dados(), false, &erro) || !BancoTeste::Copiar(modelo.database, banco, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }

    TRepF tela;
    tela.resize(1366, 768);
    tela.show();
    if (!AguardarLista(tela)) {
        QTextStream(stderr) << "the note list never loaded" << Qt::endl;
        return 1;
    }
    QApplication::setActiveWindow(&tela);
    AbrirNota(tela);

    TConexaoSQL conexao;
    conexao.PegarDados(TConexD::Conexao());
    TRepF_ImportItensF dialogo(conexao, Fornec, &tela);
    dialogo.AdicionarDocumento(std::make_unique<TnfeProc>(NFeExemplo(QStringLiteral("44555666000181"),
                                                                     QStringLiteral("11222333000181"), 1, Itens)));
    dialogo.PreencherItensOrigem();
    dialogo.QtdsMax();
    TFornec fornec;
    fornec.codigo = Fornec;
    TRepF_ImportItens importacao(fornec, {}, conexao, pasta.path(), QString(), tela.TelaNota(), tela.Andamento());
    importacao.AjustarTots(dialogo);
    const double ms = Medicao::Ms([&] { importacao.DigitarItens(dialogo); });

    const int digitados = tela.RepD().Itens().RecordCount();
    out << QString::asprintf("typing %d imported items into the item panel: %.0f ms, %.1f ms per item (%d items staged)\n",
                             dialogo.DestinoDataSet().RecordCount(), ms, ms / Itens, digitados);
    return digitados == Itens ? 0 : 1;
}
