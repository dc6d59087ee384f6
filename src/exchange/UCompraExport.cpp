#include "UCompraExport.h"

#include "Dialogos.h"
#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "TProgresso.h"

#include <QScopeGuard>

void Exportar(TConexaoSQL &conexao)
{
    const QString arquivo = SelectFile(QStringLiteral("Exportar compras para arquivo..."), QString(),
                                       QStringLiteral("*.txt|*.txt|*.*|*.*"), true);
    if (!arquivo.isEmpty())
        ExportarPara(conexao, arquivo, TProgresso::Janela());
}

std::optional<TContagemArq> ExportarPara(TConexaoSQL &conexao, const QString &arquivo, TProgresso &progresso)
{
    namespace DBI = TCompraExpImp_DBI;
    TContagemArq contagem;
    try {
        ConectarOuErro(conexao, QStringLiteral("conectar ao banco de dados para exportar as notas"));
        const auto desconectar = qScopeGuard([&] { conexao.Desconectar(); progresso.Fechar(); });
        TGravadorArqCompras gravador(arquivo);
        if (!gravador.Abrir()) {
            MensagemErro(gravador.Erro());
            return std::nullopt;
        }
        const auto notas = AbOuErro(conexao, DBI::SqlNotas(), QStringLiteral("ler as notas"));
        progresso.Exibir(QStringLiteral("Exportando..."), notas->RecordCount());
        for (; !notas->Eof(); notas->Next()) {
            gravador.GravarLinha(QStringLiteral("C"), DBI::ColunasCompra(), *notas);
            const int emprCod = notas->Fields(0).AsInteger();
            const int estacaoCod = notas->Fields(1).AsInteger();
            const int compraCod = notas->Fields(DBI::ColunaChave).AsInteger();
            const auto movs = AbOuErro(conexao, DBI::SqlMovsDaNota(emprCod, estacaoCod, compraCod),
                                       QStringLiteral("ler os movimentos da nota %1-%2-%3").arg(emprCod).arg(estacaoCod).arg(compraCod));
            for (; !movs->Eof(); movs->Next())
                gravador.GravarLinha(QStringLiteral("CE"), DBI::ColunasEstMov(), *movs);
            contagem.movimentos += movs->RecordCount();
            progresso.PegarAtual(++contagem.notas);
        }
        if (!gravador.Concluir()) {
            MensagemErro(gravador.Erro());
            return std::nullopt;
        }
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return std::nullopt;
    }
    return contagem;
}
