#pragma once

// What every benchmark does: time a piece of work, keep the best round, capture the statements a
// call sends and send them again bare, with nothing of the module in between.

#include "RegistroSql.h"
#include "TConexaoSQL.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace Medicao {

template<typename F>
double Ms(F &&f)
{
    QElapsedTimer t;
    t.start();
    f();
    return double(t.nsecsElapsed()) / 1e6;
}

inline double Melhor(const std::vector<double> &v)
{
    return *std::min_element(v.begin(), v.end());
}

// The statements one call sends, as the connection logs them.
template<typename F>
QStringList Declaracoes(F &&f)
{
    RegistroSql registro;
    f();
    return RegistroSql::Sql();
}

// The statements one after the other on one attachment, selects read to the end; false, with the
// failing statement on standard error, when one fails.
inline bool Repetir(TConexaoSQL &conexao, const QStringList &sqls)
{
    for (const QString &sql : sqls) {
        bool ok = true;
        if (sql.startsWith(QLatin1String("select"), Qt::CaseInsensitive)) {
            const auto q = conexao.Ab(sql);
            ok = q != nullptr;
            for (; ok && !q->Eof(); q->Next()) {
            }
        } else {
            ok = conexao.Exec(sql);
        }
        if (!ok) {
            QTextStream(stderr) << "replay failed: " << conexao.UltimoErro() << "\n" << sql.left(200) << Qt::endl;
            return false;
        }
    }
    return true;
}

// "bench_x [items [rounds]]": a smaller run while investigating; the defaults otherwise.
inline void LerTamanho(int argc, char **argv, int &itens, int &rodadas)
{
    if (argc > 1)
        itens = std::max(1, QString::fromLocal8Bit(argv[1]).toInt());
    if (argc > 2)
        rodadas = std::max(1, QString::fromLocal8Bit(argv[2]).toInt());
}

// One company, one supplier, one unit, one tax situation and three price tables: what a
// benchmark's products and notes refer to.
inline QStringList CadastrosDaLoja()
{
    return {
        QStringLiteral("insert into empr (empr_cod, raz, nome_red) values (1, 'Loja Matriz Ltda', 'MATRIZ')"),
        QStringLiteral("insert into fornec (fornec_cod, nome_red) values (1, 'FORNECEDOR')"),
        QStringLiteral("insert into unid (unid_cod, sigla, descr) values (1, 'UN', 'UNIDADE')"),
        QStringLiteral("insert into trib (trib_cod, descr, perc) values (1, 'TRIBUTADO', 12)"),
        QStringLiteral("insert into tab_preco (tab_preco_cod, nome) values (1, 'VAREJO')"),
        QStringLiteral("insert into tab_preco (tab_preco_cod, nome) values (2, 'ATACADO')"),
        QStringLiteral("insert into tab_preco (tab_preco_cod, nome) values (3, 'PROMOCAO')"),
    };
}

} // namespace Medicao
