#include "UCompraImport.h"

#include "Dialogos.h"
#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "TProgresso.h"

#include <QScopeGuard>

#include <vector>

namespace {

namespace DBI = TCompraExpImp_DBI;

constexpr size_t TamanhoLote = 256;

// Every linked movement one by one, then the notes and the links; compra_g back to 0 so that the
// imported notes are 1, 2, 3, ... in file order.
void excluirTudo(TConexaoSQL &conexao, TProgresso &progresso)
{
    progresso.Exibir(QStringLiteral("Contando registros..."), 0);
    const int ligacoes = AbOuErro(conexao, DBI::SqlContarLigacoes(), QStringLiteral("contar os movimentos das notas"))
                             ->Fields(0).AsInteger();
    progresso.Exibir(QStringLiteral("Excluindo itens..."), ligacoes + 3);
    int posicao = 0;
    const auto movs = AbOuErro(conexao, DBI::SqlMovsLigados(), QStringLiteral("ler os movimentos das notas"));
    for (; !movs->Eof(); movs->Next()) {
        const int empr = movs->Fields(0).AsInteger();
        const int estacao = movs->Fields(1).AsInteger();
        const int mov = movs->Fields(2).AsInteger();
        ExecOuErro(conexao, DBI::SqlExcluirMov(empr, estacao, mov),
                   QStringLiteral("excluir o movimento %1-%2-%3").arg(empr).arg(estacao).arg(mov));
        progresso.PegarAtual(++posicao);
    }
    for (const QString &sql : DBI::SqlExcluirNotas()) {
        ExecOuErro(conexao, sql, QStringLiteral("excluir as notas (%1)").arg(sql));
        progresso.PegarAtual(++posicao);
    }
}

} // namespace

bool Importar(TConexaoSQL &conexao)
{
    if (!Pergunta(PerguntaImportar))
        return false;
    const QString arquivo = SelectFile(QStringLiteral("Importar compras de arquivo..."), QString(),
                                       QStringLiteral("*.txt|*.txt|*.*|*.*"));
    if (arquivo.isEmpty())
        return false;
    ImportarDe(conexao, arquivo, TProgresso::Janela());
    return true;
}

std::optional<TContagemArq> ImportarDe(TConexaoSQL &conexao, const QString &arquivo, TProgresso &progresso)
{
    TLeitorArqCompras leitor(arquivo);
    if (!leitor.Verificar()) {
        MensagemErro(leitor.Erro());
        return std::nullopt;
    }
    TContagemArq contagem;
    try {
        ConectarOuErro(conexao, QStringLiteral("conectar ao banco de dados para importar as notas"));
        const auto desconectar = qScopeGuard([&] { conexao.Desconectar(); progresso.Fechar(); });
        excluirTudo(conexao, progresso);
        progresso.Exibir(QStringLiteral("Importando..."), leitor.Linhas());
        // A movement before any note links to note 0 of company 0.
        int notaEmpr = 0;
        qint64 notaCod = 0;
        // Lines are converted a few hundred at a time and their statements then sent back to back:
        // the engine runs markedly slower when every statement waits on the conversion of a line.
        std::vector<TLinhaArq> lote;
        const auto gravarLote = [&] {
            for (const TLinhaArq &linha : lote) {
                const QString onde = QStringLiteral(" da linha %1 do arquivo").arg(linha.numero);
                if (linha.tipo == QLatin1String("C")) {
                    notaEmpr = linha.literais.first().toInt();
                    notaCod = GeneratorOuErro(conexao, QStringLiteral("compra_g"), QStringLiteral("numerar a nota") + onde);
                    ExecOuErro(conexao, DBI::SqlInserirCompra(linha.literais, notaCod), QStringLiteral("inserir a nota") + onde);
                    ++contagem.notas;
                } else if (!linha.tipo.isEmpty()) {
                    const int movEmpr = linha.literais.first().toInt();
                    const qint64 movCod =
                        GeneratorOuErro(conexao, QStringLiteral("est_mov_g"), QStringLiteral("numerar o movimento") + onde);
                    ExecOuErro(conexao, DBI::SqlInserirEstMov(linha.literais, movCod), QStringLiteral("inserir o movimento") + onde);
                    ExecOuErro(conexao, DBI::SqlInserirLigacao(notaEmpr, notaCod, movEmpr, movCod),
                               QStringLiteral("ligar o movimento") + onde + QStringLiteral(" à sua nota"));
                    ++contagem.movimentos;
                }
                progresso.PegarAtual(linha.numero);
            }
            lote.clear();
        };
        const bool lido = leitor.Percorrer([&](const TLinhaArq &linha) {
            lote.push_back(linha);
            if (lote.size() == TamanhoLote)
                gravarLote();
            return true;
        });
        gravarLote();
        if (!lido) {
            MensagemErro(leitor.Erro());
            return std::nullopt;
        }
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return std::nullopt;
    }
    return contagem;
}
