// The screen's NF-e actions and their commands: the refusals, the company's and the recipient's
// checks, the exit date, the cancellation's justification.
#include "BancoTeste.h"
#include "ComandosHeadless.h"
#include "SimuladorSefaz.h"
#include "TBuscaArq.h"
#include "TelaTeste.h"
#include "UNFeAcoes.h"

#include <QTemporaryDir>
#include <QTextStream>

namespace {

const QString Chave = QStringLiteral("35261111222333000181550010000000121000000123");

class AcoesNFe : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        BancoTeste::FixarRelogio();   // 20/11/2026 10:30
    }
    // "exit code|what it printed"; the arguments as given.
    QString Rodou(const QStringList &argumentos)
    {
        QString saida, erros;
        QTextStream s(&saida), e(&erros);
        const int codigo = ComandosHeadless::Executar(argumentos, s, e);
        return QString::number(codigo) + '|' + saida + erros;
    }
    void Nota(int compra, int tipo, bool cancelado, const QString &set = {})
    {
        ASSERT_EQ(InserirNota(db, {.compra = compra, .tipo = tipo, .cancelado = cancelado}), QString());
        if (!set.isEmpty()) {
            ASSERT_EQ(db.exec("update compra set " + set + " where compra_cod=" + QString::number(compra)), QString());
        }
    }

    TestDatabase db;
};

TEST_F(AcoesNFe, CadaRecusaTemSuaMensagemENadaMuda)
{
    Nota(1, 34, false);
    Nota(2, 37, false);
    Nota(3, 35, true);
    Nota(4, 35, false, "nfe_chave='" + Chave + "', nfe_protocolo='135260000000001', nfe_num=12");
    Nota(5, 39, false);
    const QString recusaCce = QStringLiteral("1|informação: Opção disponível somente para DEVOLUÇÃO e SIMPLES REMESSA\n");
    const struct
    {
        QString linha, saida;
    } casos[] = {
        {"nfe-send 1-1", "1|erro: Não pode ser enviada NFe referente a uma ENTRADA\n"},
        {"nfe-send 1-2", "1|erro: Não pode ser enviada NFe referente a uma NOTA DE PRODUÇÃO\n"},
        {"nfe-send 1-3 --yes", "1|informação: Esta venda foi cancelada. Não é possivel gerar o NFe\n"},
        {"nfe-send 1-4 --yes", "1|informação: Esta venda já possui Protocolo NFE. Não pode mais ser enviada\n"},
        {"nfe-cancel 1-5 --justificativa Devolvida_por_engano", "1|informação: Esta nota não possui Chave NFE. Não é possivel enviar cancelamento\n"},
        {"nfe-cancel 1-4 --justificativa Devolvida_por_engano", "1|informação: Esta nota ainda não foi cancelada. Não é possivel enviar cancelamento\n"},
        {"nfe-print 1-3", "1|informação: Esta venda foi cancelada. Não é possivel reimprimir\n"},
        {"nfe-print 1-5", "1|informação: Esta venda não possui Chave NFE. Não pode mais ser impressa\n"},
        {"nfe-cce 1-1 --texto Corrige_o_peso_bruto", recusaCce},
        {"nfe-cce 1-5 --texto Corrige_o_peso_bruto", recusaCce},
        {"nfe-cancel 1-4", "2|pavrel nfe-cancel: falta --justificativa\n"},
    };
    for (const auto &caso : casos)
        EXPECT_TRUE(Rodou(caso.linha.split(' ')).startsWith(caso.saida)) << caso.linha.toStdString();
    EXPECT_EQ(db.valor("select count(*) from compra where dth_sai is not null or nfe_justificativa is not null"), "0");
}

TEST_F(AcoesNFe, EmpresaEDestinatarioApontamOPrimeiroCampoEmBranco)
{
    DialogosTeste dialogos;
    ASSERT_TRUE(UNFeAcoes::EmprAceita(db.conexao(), 1) && UNFeAcoes::NotaAceita(1));
    // Blanked from the last one back, each field must be the one reported.
    const std::pair<const char *, const char *> empresa[] = {
        {"fone1", "o Telefone 1"}, {"cep", "o CEP"}, {"uf", "a UF"}, {"mun", "o Município"}, {"bai", "o Bairro"},
        {"num", "o Número"}, {"logr", "o Logradouro"}, {"ie", "a Inscrição Estatual"}, {"cnpj", "o CNPJ"},
        {"raz", "a Razão Social"}};
    for (const auto &[coluna, nome] : empresa) {
        ASSERT_EQ(db.exec(QStringLiteral("update empr set %1=' ' where empr_cod=1").arg(coluna)), QString());
        dialogos.Limpar();
        EXPECT_FALSE(UNFeAcoes::EmprAceita(db.conexao(), 1));
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info),
                  QStringLiteral("Em Tabelas, Empresa, indique %1 e tente novamente").arg(QString::fromUtf8(nome)));
    }
    const std::pair<const char *, const char *> destinatario[] = {
        {"uf", "Estado"}, {"mun", "Município"}, {"bai", "Bairro"}, {"num", "Número"}, {"logr", "Logradouro"},
        {"c", "CPF/CNPJ"}, {"raz", "Nome"}};
    for (const auto &[coluna, rotulo] : destinatario) {
        ASSERT_EQ(db.exec(QStringLiteral("update fornec set %1=null where fornec_cod=1").arg(coluna)), QString());
        dialogos.Limpar();
        EXPECT_FALSE(UNFeAcoes::NotaAceita(1));
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info),
                  QStringLiteral("O campo '%1' do cliente está em branco. Corrija e tente novamente").arg(QString::fromUtf8(rotulo)));
    }
}

TEST_F(AcoesNFe, SaidaHaExatamenteUmDiaNaoPerguntaUmDiaEUmMinutoPergunta)
{
    Nota(3, 35, false, "dth_sai='2026-11-19 10:30:00'");
    Nota(4, 35, false, "dth_sai='2026-11-19 10:29:00'");
    DialogosTeste dialogos;
    TRepD repD(db.conexao());
    ASSERT_TRUE(repD.CarregarNota(1, 1, 3));
    repD.EnviarNFE();   // a question here fails the test: none was scripted
    ASSERT_TRUE(repD.CarregarNota(1, 1, 4));
    dialogos.Limpar();
    dialogos.Responder(false);
    EXPECT_FALSE(repD.EnviarNFE());
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().texto, QStringLiteral("Deseja ajustar a data de saída?"));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    dialogos.Responder(true);
    repD.EnviarNFE();
    EXPECT_EQ(db.valor("select count(*) from compra where compra_cod=4 and dth_sai='2026-11-20 10:30:00'"), "1");
    EXPECT_EQ(repD.Notas().FieldByName(QStringLiteral("DTH_SAI")).AsDateTime(), Contexto::Atual().Agora());
}

TEST_F(AcoesNFe, JustificativaGravadaAntesDoEnvioMesmoQuandoEleNaoSai)
{
    Nota(6, 35, true, "nfe_chave='" + Chave + "', nfe_num=12, nfe_justificativa='antiga'");
    ASSERT_EQ(db.exec("update empr set ie=null where empr_cod=1"), QString());
    EXPECT_EQ(Rodou({"nfe-cancel", "1-6", "--justificativa", "Devolvida por engano ao fornecedor"}),
              "1|informação: Em Tabelas, Empresa, indique a Inscrição Estatual e tente novamente\n");
    EXPECT_EQ(db.valor("select nfe_justificativa from compra"), "Devolvida por engano ao fornecedor");
    ASSERT_EQ(db.exec("update empr set ie='110042490114' where empr_cod=1"), QString());
    // The authority never authorised this key: the send fails, the new text stays.
    EXPECT_TRUE(Rodou({"nfe-cancel", "1-6", "--justificativa", "Nota emitida com o fornecedor errado"}).startsWith("1|"));
    EXPECT_EQ(db.valor("select nfe_justificativa || '|' || coalesce(nfe_dth_canc, '-') from compra"),
              "Nota emitida com o fornecedor errado|-");
}

// Against the authority's simulator: each note issued, sent and filed for real.
class AcoesNFeSefaz : public AcoesNFe
{
protected:
    static void SetUpTestSuite()
    {
        simulador = std::make_unique<TSimuladorSefaz>();
        ASSERT_TRUE(simulador->Iniciar(QStringLiteral("11222333000181"), &erroSimulador)) << erroSimulador.toStdString();
    }
    static void TearDownTestSuite() { simulador.reset(); }
    void SetUp() override
    {
        ASSERT_TRUE(db.ok() && simulador && erroSimulador.isEmpty()) << erroSimulador.toStdString();
        BancoTeste::FixarRelogio(QDateTime::currentDateTime());
        Contexto::Atual().pastaFiscal = fiscal.path();
        simulador->Apontar();
    }
    void TearDown() override { Contexto::Atual().pastaFiscal.clear(); }
    void NotaEmitivel(int compra, int tipo)
    {
        ASSERT_EQ(InserirNota(db, {.compra = compra, .tipo = tipo, .itens = {Item(compra, 1, "2", "10")}}), QString());
        ASSERT_EQ(db.execScript(QStringLiteral("update compra_item_tmp set cfop='5949' where compra_cod=%1;"
                                               "update compra set nat_op_str='OUTRA SAIDA', serie='1', "
                                               "nfe_chave_ref='35261112345678000195550010000012341097720596' "
                                               "where compra_cod=%1;")
                                    .arg(compra)),
                  QString());
    }
    QString Coluna(const char *coluna, int compra)
    {
        return db.valor(QStringLiteral("select coalesce(%1, '') from compra where compra_cod=%2").arg(coluna).arg(compra));
    }
    // The finNFe of the note's filed NF-e.
    QString Finalidade(int compra)
    {
        TBuscaArq busca;
        busca.Pasta = fiscal.path();
        busca.NomeArq = Coluna("nfe_chave", compra) + QStringLiteral("-procNFe.xml");
        QFile arquivo(busca.Execute() ? busca.GetUltimoCaminho() : QString());
        const QString xml = arquivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(arquivo.readAll()) : QString();
        return xml.section(QStringLiteral("<finNFe>"), 1, 1).section(QLatin1Char('<'), 0, 0);
    }

    static inline std::unique_ptr<TSimuladorSefaz> simulador;
    static inline QString erroSimulador;
    QTemporaryDir fiscal;
};

TEST_F(AcoesNFeSefaz, ComplementarSaiComFinalidade2RemessaCom1ERejeicaoComCodigoEMotivo)
{
    NotaEmitivel(4, 39);
    NotaEmitivel(5, 36);
    EXPECT_EQ(Rodou({"nfe-status"}), "0|107 Serviço em Operação\n");
    // No exit date yet: --yes moves it to now and the note goes.
    const QString enviada = Rodou({"nfe-send", "1-4", "--yes"});
    EXPECT_TRUE(enviada.startsWith("0|100 Autorizado o uso da NF-e\nNF-e ")) << enviada.toStdString();
    EXPECT_EQ(Coluna("nfe_protocolo", 4).size(), 15);
    EXPECT_EQ(Finalidade(4), "2");

    DialogosTeste dialogos;
    dialogos.Responder(true);
    TRepD repD(db.conexao());
    ASSERT_TRUE(repD.CarregarNota(1, 1, 5));
    ASSERT_TRUE(UNFeAcoes::EnviarNFe(repD)) << dialogos.Mensagens().value(0).texto.toStdString();
    EXPECT_EQ(repD.Notas().FieldByName(QStringLiteral("NFE_PROTOCOLO")).AsString(), Coluna("nfe_protocolo", 5));
    EXPECT_EQ(repD.Notas().FieldByName(QStringLiteral("NFE_CHAVE")).AsString(), Coluna("nfe_chave", 5));
    EXPECT_EQ(Finalidade(5), "1");

    const QString pdf = fiscal.filePath(QStringLiteral("danfe.pdf"));
    EXPECT_EQ(Rodou({"nfe-print", "1-5", "--pdf", pdf}), "0|PDF gravado em " + pdf + "\n");
    EXPECT_TRUE(Rodou({"nfe-cce", "1-5", "--texto", "Peso bruto correto: 12,5 kg"})
                    .startsWith("0|135 Evento registrado e vinculado a NF-e\nCarta de correção 1 "));
    ASSERT_EQ(db.exec("update compra set cancelado='S' where compra_cod=5"), QString());
    EXPECT_TRUE(Rodou({"nfe-cancel", "1-5", "--justificativa", "Remessa emitida em duplicidade"})
                    .startsWith("0|135 Evento registrado e vinculado a NF-e\nNF-e "));
    EXPECT_NE(Coluna("nfe_dth_canc", 5), QString());

    NotaEmitivel(6, 36);
    simulador->Comando(QStringLiteral("rejeitar NFeAutorizacao4 225"));
    const QString rejeitada = Rodou({"nfe-send", "1-6", "--yes"});
    EXPECT_TRUE(rejeitada.endsWith("\nerro: NF-e rejeitada pela SEFAZ: 225 - Rejeição: Falha no Schema XML\n"))
        << rejeitada.toStdString();
    EXPECT_EQ(Coluna("nfe_protocolo", 6), QString());
}

TEST_F(TelaTeste, AcoesNFeRecusamUmaEntradaEVoltamHabilitadas)
{
    ASSERT_EQ(InserirNota(db, {.compra = 1, .tipo = 34}), QString());
    const auto tela = AbrirTela();
    ASSERT_EQ(tela->RepD().Notas().RecordCount(), 1);
    const std::pair<const char *, const char *> casos[] = {
        {"NFEEnviarAct", "Não pode ser enviada NFe referente a uma ENTRADA"},
        {"NFECancAct", "Esta nota não possui Chave NFE. Não é possivel enviar cancelamento"},
        {"NFEImprAct", "Esta venda não possui Chave NFE. Não pode mais ser impressa"},
        {"NfeCorrAct", "Opção disponível somente para DEVOLUÇÃO e SIMPLES REMESSA"},
    };
    for (const auto &[acao, mensagem] : casos) {
        dialogos.Limpar();
        tela->Acao(QLatin1String(acao))->trigger();
        EXPECT_EQ(primeiraMensagem(), QString::fromUtf8(mensagem)) << acao;
        EXPECT_EQ(dialogos.Mensagens().size(), 1) << acao;
        EXPECT_TRUE(tela->Acao(QLatin1String(acao))->isEnabled()) << acao;
    }
}

} // namespace
