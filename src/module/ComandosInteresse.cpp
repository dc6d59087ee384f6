#include "ComandosInteresse.h"

#include "ComandosHeadless.h"
#include "Contexto.h"
#include "TConexD.h"
#include "TDistribuicaoNFe.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>

namespace ComandosInteresse {

namespace {

const QList<std::pair<QString, TManifestacao>> Manifestacoes = {
    {QStringLiteral("ciencia"), TManifestacao::Ciencia},
    {QStringLiteral("confirmacao"), TManifestacao::Confirmacao},
    {QStringLiteral("desconhecimento"), TManifestacao::Desconhecimento},
    {QStringLiteral("nao-realizada"), TManifestacao::NaoRealizada},
};

QString Linha(const TNFeDeInteresse &doc)
{
    const QString emitente = (doc.cnpjEmitente + u' ' + doc.nomeEmitente).trimmed();
    const QString tipo = doc.tipo == QLatin1String("evento") ? QStringLiteral("evento %1").arg(doc.tpEvento) : doc.tipo;
    return QStringList{doc.chave, emitente, doc.dhEmi.toString(QStringLiteral("dd/MM/yyyy HH:mm")), doc.valor, tipo}
        .join(u'\t');
}

void Retorno(const TDistribuicaoNFe &distribuicao, QTextStream &saida)
{
    if (distribuicao.UltimoCStat() != 0)
        saida << distribuicao.UltimoCStat() << " - " << distribuicao.UltimoXMotivo() << Qt::endl;
}

} // namespace

int NfeInteresse(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("nfe-interesse");
    const char *uso = "[--manifestar ciencia|confirmacao|desconhecimento|nao-realizada --chave CHAVE [--justificativa TEXTO]]";
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("manifestar"), QStringLiteral("the recipient's manifestation"), QStringLiteral("TIPO")},
        {QStringLiteral("chave"), QStringLiteral("the NF-e's key"), QStringLiteral("CHAVE")},
        {QStringLiteral("justificativa"), QStringLiteral("why the operation was not performed"), QStringLiteral("TEXTO")},
    });
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    if (!parser.positionalArguments().isEmpty())
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("argumento inesperado: ") + parser.positionalArguments().first(), uso);
    const bool manifestar = parser.isSet(QStringLiteral("manifestar"));
    if (!manifestar && (parser.isSet(QStringLiteral("chave")) || parser.isSet(QStringLiteral("justificativa"))))
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("--chave e --justificativa só com --manifestar"), uso);

    TDistribuicaoNFe distribuicao(TConexD::Conexao(), Contexto::Atual().empresa);
    QString erro;
    if (manifestar) {
        const QString nome = parser.value(QStringLiteral("manifestar")).trimmed().toLower();
        const auto tipo = std::find_if(Manifestacoes.begin(), Manifestacoes.end(), [&nome](const auto &m) { return m.first == nome; });
        if (tipo == Manifestacoes.end())
            return ComandosHeadless::Recusar(erros, comando, QStringLiteral("manifestação desconhecida: ") + nome, uso);
        if (!parser.isSet(QStringLiteral("chave")))
            return ComandosHeadless::Recusar(erros, comando, QStringLiteral("falta --chave"), uso);
        const bool ok = distribuicao.Manifestar(parser.value(QStringLiteral("chave")), tipo->second,
                                                parser.value(QStringLiteral("justificativa")), &erro);
        Retorno(distribuicao, saida);
        if (!ok) {
            erros << "pavrel " << comando << ": " << erro << Qt::endl;
            return 1;
        }
        if (!distribuicao.UltimoAviso().isEmpty())
            erros << "pavrel " << comando << ": " << distribuicao.UltimoAviso() << Qt::endl;
        return 0;
    }
    QList<TNFeDeInteresse> novos;
    const bool ok = distribuicao.Baixar(&novos, &erro);
    for (const TNFeDeInteresse &doc : novos)
        saida << Linha(doc) << Qt::endl;
    Retorno(distribuicao, saida);
    if (!ok) {
        erros << "pavrel " << comando << ": " << erro << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace ComandosInteresse
