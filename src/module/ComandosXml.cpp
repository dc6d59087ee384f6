#include "ComandosXml.h"

#include "AvisosImportacao.h"
#include "ChaveNFe.h"
#include "ComandosHeadless.h"
#include "Contexto.h"
#include "TConexD.h"
#include "TImportItensDados.h"
#include "TNFe_XMLI.h"
#include "TextoDataSet.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <memory>

namespace ComandosXml {

namespace {

// The document in the file, or nothing with one line saying what is wrong.
std::unique_ptr<TnfeProc> Ler(const QString &arquivo, const QString &comando, QTextStream &erros)
{
    auto documento = std::make_unique<TnfeProc>();
    TNFe_XMLI leitor(*documento);
    if (leitor.ImportarDoArq(arquivo))
        return documento;
    erros << "pavrel " << comando << ": " << leitor.Erro() << Qt::endl;
    return nullptr;
}

} // namespace

int XmlItems(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("xml-items");
    const char *uso = "ARQUIVO... [--supplier N]";
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("supplier"), QStringLiteral("supplier code"), QStringLiteral("N")});
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const QStringList arquivos = parser.positionalArguments();
    if (arquivos.isEmpty())
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("nenhum arquivo"), uso);
    bool ok = true;
    const bool fornecDado = parser.isSet(QStringLiteral("supplier"));
    const int fornec = fornecDado ? parser.value(QStringLiteral("supplier")).toInt(&ok) : 0;
    if (!ok || fornec < 0)
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("fornecedor inválido em --supplier: ") + parser.value(QStringLiteral("supplier")), uso);

    TConexaoSQL &conexao = TConexD::Conexao();
    TImportItensDados dados(conexao, fornec);
    dados.SetFornecPeloEmitente(!fornecDado);
    bool todos = true;
    for (const QString &arquivo : arquivos) {
        auto documento = Ler(arquivo, comando, erros);
        todos = todos && documento;
        if (documento)
            dados.AdicionarDocumento(std::move(documento));
    }
    if (!todos)
        return 1;
    for (const auto &documento : dados.Documentos())
        for (const QString &aviso : AvisosImportacao(conexao, Contexto::Atual().empresa, *documento))
            erros << "aviso: " << aviso << Qt::endl;
    if (!dados.PreencherItensOrigem()) {
        erros << "pavrel " << comando << ": " << dados.Erro() << Qt::endl;
        return 1;
    }
    saida << TextoTabulado(dados.Origem());
    saida.flush();
    return 0;
}

int XmlKey(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("xml-key");
    QCommandLineParser parser;
    if (!parser.parse(QStringList{comando} + argumentos) || parser.positionalArguments().size() != 1)
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), "ARQUIVO");
    const QString arquivo = parser.positionalArguments().first();
    if (!Ler(arquivo, comando, erros))
        return 1;
    saida << NomeXMLToNFEChave(arquivo) << Qt::endl;
    return 0;
}

} // namespace ComandosXml
