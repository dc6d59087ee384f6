#include "TDacce.h"

#include "TConexaoSQL.h"
#include "TEventoNFe.h"
#include "TImpressoraNFe.h"
#include "Valores.h"

#include <QPagedPaintDevice>
#include <QPainter>

namespace {

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

// A key in groups of four digits, as printed documents show it.
QString ChaveEmGrupos(const QString &chave)
{
    QStringList grupos;
    for (int i = 0; i < chave.size(); i += 4)
        grupos << chave.mid(i, 4);
    return grupos.join(u' ');
}

} // namespace

bool TDacce::Desenhar(const TFolha &folha, QPagedPaintDevice &dispositivo, QString *erro)
{
    QPainter p;
    if (!p.begin(&dispositivo))
        return Falhar(erro, QStringLiteral("Não foi possível desenhar a carta de correção"));
    const int largura = dispositivo.width();
    const int mm = qRound(dispositivo.logicalDpiX() / 25.4);
    int y = 0;
    const auto texto = [&](const QString &t, int pontos, bool negrito, int flags = Qt::AlignLeft) {
        QFont fonte(QStringLiteral("Sans Serif"), pontos);
        fonte.setBold(negrito);
        p.setFont(fonte);
        const QRect area(0, y, largura, dispositivo.height() - y);
        const QRect usado = p.boundingRect(area, flags | Qt::TextWordWrap, t);
        p.drawText(area, flags | Qt::TextWordWrap, t);
        y += usado.height() + mm;
    };
    const auto quadro = [&](int inicio) {
        p.drawRect(QRect(-mm, inicio - mm, largura + 2 * mm, y - inicio + mm));
        y += 2 * mm;
    };
    texto(QStringLiteral("CARTA DE CORREÇÃO ELETRÔNICA"), 14, true, Qt::AlignHCenter);
    y += 2 * mm;
    int inicio = y;
    texto(folha.razao, 11, true);
    texto(QStringLiteral("CNPJ: %1    IE: %2").arg(folha.cnpj, folha.ie), 9, false);
    texto(folha.endereco, 9, false);
    quadro(inicio);
    inicio = y;
    texto(QStringLiteral("Chave de acesso da NF-e: %1").arg(ChaveEmGrupos(folha.chave)), 9, false);
    texto(QStringLiteral("NF-e nº %1    Série %2    Sequência do evento: %3")
              .arg(folha.chave.mid(25, 9).toLongLong()).arg(folha.chave.mid(22, 3).toInt()).arg(folha.carta.seq),
          9, false);
    texto(QStringLiteral("Registrada em %1    Protocolo: %2")
              .arg(folha.carta.dthEnv.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")), folha.carta.protocolo),
          9, false);
    quadro(inicio);
    inicio = y;
    texto(QStringLiteral("CORREÇÃO"), 10, true);
    texto(folha.carta.texto, 10, false);
    quadro(inicio);
    inicio = y;
    texto(QStringLiteral("CONDIÇÕES DE USO"), 8, true);
    texto(TEventoNFe::CondicaoUsoCCe, 8, false);
    quadro(inicio);
    return p.end() || Falhar(erro, QStringLiteral("Não foi possível concluir a página da carta de correção"));
}

bool TDacce::Cartas(TConexaoSQL &conexao, int emprCod, const QString &chave, QList<TCartaCorrecaoNFe> *cartas,
                    QString *erro)
{
    const auto q = conexao.Ab(QStringLiteral("select seq, texto, protocolo, dth_env, descr from nfe_corr where empr_cod=%1 "
                                             "and nfe_chave=%2 order by seq")
                                  .arg(emprCod).arg(QuotedStr(chave)));
    if (!q)
        return Falhar(erro, QStringLiteral("Erro lendo as cartas de correção da NF-e %1: %2").arg(chave, conexao.UltimoErro()));
    cartas->clear();
    for (; !q->Eof(); q->Next())
        cartas->append({q->FieldByName(QStringLiteral("seq")).AsInteger(), q->FieldByName(QStringLiteral("texto")).AsString(),
                        q->FieldByName(QStringLiteral("protocolo")).AsString().trimmed(),
                        q->FieldByName(QStringLiteral("descr")).AsString(),
                        q->FieldByName(QStringLiteral("dth_env")).AsDateTime()});
    return true;
}

bool TDacce::Imprimir(TConexaoSQL &conexao, int emprCod, const QString &chave, int seq, QString *erro)
{
    TImpressoraNFe *impressora = TImpressoraNFe::Atual();
    if (!impressora)
        return Falhar(erro, QStringLiteral("Nenhuma impressora de NF-e foi indicada: a carta de correção não foi impressa"));
    QList<TCartaCorrecaoNFe> cartas;
    if (!Cartas(conexao, emprCod, chave, &cartas, erro))
        return false;
    TFolha folha;
    folha.chave = chave;
    for (const TCartaCorrecaoNFe &c : cartas)
        if (c.seq == seq)
            folha.carta = c;
    if (folha.carta.protocolo.isEmpty())
        return Falhar(erro, QStringLiteral("A carta de correção %1 da NF-e %2 não foi registrada pela SEFAZ").arg(seq).arg(chave));
    const auto e = conexao.Ab(QStringLiteral("select raz, cnpj, ie, logr, num, bai, mun, uf, cep from empr where empr_cod=%1")
                                  .arg(emprCod));
    if (!e || e->IsEmpty())
        return Falhar(erro, QStringLiteral("Erro lendo a empresa %1: %2").arg(emprCod).arg(conexao.UltimoErro()));
    const auto campo = [&](const char *c) { return e->FieldByName(QLatin1String(c)).AsString().trimmed(); };
    folha.razao = campo("raz");
    folha.cnpj = campo("cnpj");
    folha.ie = campo("ie");
    folha.endereco = QStringLiteral("%1, %2 - %3 - %4/%5 - CEP %6")
                         .arg(campo("logr"), campo("num"), campo("bai"), campo("mun"), campo("uf"), campo("cep"));
    return impressora->Imprimir(QStringLiteral("CC-e %1-%2").arg(chave).arg(seq, 2, 10, QLatin1Char('0')),
                                [&](QPagedPaintDevice &dispositivo, QString *motivo) {
                                    return Desenhar(folha, dispositivo, motivo);
                                },
                                erro);
}
