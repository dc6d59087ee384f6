#include "ComandosNFe.h"

#include "ComandosHeadless.h"
#include "Contexto.h"
#include "PastaFiscal.h"
#include "TBuscaArq.h"
#include "TCertificadoA1.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TDanfe.h"
#include "TEmissorNFe.h"
#include "TNFe_XMLI.h"
#include "TRepD.h"
#include "TnfeProc.h"
#include "VerificaCadastro.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextStream>

namespace ComandosNFe {

namespace {

int Falhar(QTextStream &erros, const QString &comando, const QString &motivo)
{
    erros << "pavrel " << comando << ": " << motivo << Qt::endl;
    return 1;
}

// The filed XML of a key under the fiscal folder's NFe_Said, the authorised nfeProc first.
QString XmlDaChave(const QString &chave, QString *erro)
{
    const QString pasta = PastaFiscal(erro);
    if (pasta.isEmpty())
        return {};
    TBuscaArq busca;
    busca.Pasta = pasta + QStringLiteral("NFe_Said");
    for (const QString &sufixo : {QStringLiteral("-procNFe.xml"), QStringLiteral("-nfe.xml")}) {
        busca.NomeArq = chave + sufixo;
        if (busca.Execute())
            return busca.GetUltimoCaminho();
    }
    *erro = QStringLiteral("o XML da NF-e %1 não está em %2").arg(chave, busca.Pasta);
    return {};
}

} // namespace

int NfeXml(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("nfe-xml");
    const char *uso = "NOTA [--out ARQUIVO]   (NOTA: EEE-CCCCCCC, ou E-S-C)";
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("out"), QStringLiteral("copy of the signed XML"), QStringLiteral("FILE")});
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = ComandosHeadless::NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;

    TConexaoSQL &conexao = TConexD::Conexao();
    TRepD repD(conexao);
    const auto nota = ComandosHeadless::LerDoBanco(repD, *pedida, parser.positionalArguments().first().trimmed(), comando, erros);
    if (!nota)
        return 1;
    TEmissorNFe emissor(conexao);
    TNFeEmitida emitida;
    QString erro;
    if (!emissor.Emitir(nota->chave.emprCod, nota->chave.estacaoCod, nota->chave.compraCod,
                        FinalidadeDoTipo(nota->tipoCod), nota->tipoCod, nullptr, &emitida, &erro))
        return Falhar(erros, comando, erro);
    QString arquivo = emitida.arquivo;
    if (parser.isSet(QStringLiteral("out"))) {
        arquivo = parser.value(QStringLiteral("out"));
        // The filed copy is the document; the other is a byte-for-byte copy of it.
        if (QFile::exists(arquivo) && !QFile::remove(arquivo))
            return Falhar(erros, comando, QStringLiteral("não foi possível substituir ") + arquivo);
        if (!QFile::copy(emitida.arquivo, arquivo))
            return Falhar(erros, comando, QStringLiteral("NF-e %1 emitida e guardada em %2, mas não foi possível copiá-la para %3")
                                              .arg(emitida.chave, emitida.arquivo, arquivo));
    }
    saida << arquivo << Qt::endl;
    return 0;
}

int Danfe(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("danfe");
    const char *uso = "NOTA|ARQUIVO.xml --pdf SAIDA.pdf";
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("pdf"), QStringLiteral("the PDF to write"), QStringLiteral("FILE")});
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const QStringList posicionais = parser.positionalArguments();
    if (posicionais.size() != 1 || !parser.isSet(QStringLiteral("pdf")))
        return ComandosHeadless::Recusar(erros, comando, QString(), uso);
    const QString alvo = posicionais.first().trimmed();

    QString xml = alvo;
    QString erro;
    if (!alvo.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive) && !QFileInfo::exists(alvo)) {
        const auto pedida = ComandosHeadless::LerNota(alvo);
        if (!pedida)
            return ComandosHeadless::Recusar(erros, comando, QStringLiteral("nem nota nem arquivo: ") + alvo, uso);
        TRepD repD(TConexD::Conexao());
        if (!ComandosHeadless::LerDoBanco(repD, *pedida, alvo, comando, erros))
            return 1;
        const QString chave = repD.Notas().FieldByName(QStringLiteral("NFE_CHAVE")).AsString().trimmed();
        if (chave.isEmpty())
            return Falhar(erros, comando, QStringLiteral("a nota %1 não tem NF-e emitida; emita-a com nfe-xml").arg(alvo));
        xml = XmlDaChave(chave, &erro);
        if (xml.isEmpty())
            return Falhar(erros, comando, erro);
    }
    TnfeProc nfe;
    TNFe_XMLI leitor(nfe);
    if (!leitor.ImportarDoArq(xml))
        return Falhar(erros, comando, leitor.Erro());
    const QString pdf = parser.value(QStringLiteral("pdf"));
    if (!TDanfe::GerarPdf(nfe, pdf, &erro))
        return Falhar(erros, comando, erro);
    saida << pdf << Qt::endl;
    return 0;
}

int TestCertificate(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("test-certificate");
    const char *uso = "--cnpj N --out ARQUIVO.pfx --password SENHA [--legacy]";
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("cnpj"), QStringLiteral("the company's CNPJ"), QStringLiteral("N")},
        {QStringLiteral("out"), QStringLiteral("the PKCS#12 file to write"), QStringLiteral("FILE")},
        {QStringLiteral("password"), QStringLiteral("its password"), QStringLiteral("TEXT")},
        {QStringLiteral("legacy"), QStringLiteral("RC2-40 PKCS#12, as older tools write them")},
    });
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    for (const char *opcao : {"cnpj", "out", "password"})
        if (!parser.isSet(QLatin1String(opcao)))
            return ComandosHeadless::Recusar(erros, comando, QStringLiteral("falta --") + QLatin1String(opcao), uso);
    if (!parser.positionalArguments().isEmpty())
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("argumento inesperado: ") + parser.positionalArguments().first(), uso);
    // The CNPJ as it is stored: punctuation dropped, letters upper-cased.
    const QString cnpj = parser.value(QStringLiteral("cnpj")).toUpper().remove(QRegularExpression(QStringLiteral("[./ -]")));
    if (!VerificaCadastro::CnpjValido(cnpj))
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("CNPJ inválido: ") + parser.value(QStringLiteral("cnpj")), uso);

    TPedidoCertificadoTeste pedido;
    pedido.cnpj = cnpj;
    pedido.senha = parser.value(QStringLiteral("password"));
    pedido.legado = parser.isSet(QStringLiteral("legacy"));
    // Valid from yesterday for a year of the program's clock, which is the one that checks it.
    const QDateTime agora = Contexto::Atual().Agora();
    pedido.validoDe = agora.addDays(-1);
    pedido.validoAte = agora.addYears(1);
    QString erro;
    const QByteArray pkcs12 = GerarCertificadoTeste(pedido, &erro);
    if (pkcs12.isEmpty())
        return Falhar(erros, comando, erro);
    const QString arquivo = parser.value(QStringLiteral("out"));
    QSaveFile saida12(arquivo);
    if (!saida12.open(QIODevice::WriteOnly) || saida12.write(pkcs12) != pkcs12.size() || !saida12.commit())
        return Falhar(erros, comando, QStringLiteral("não foi possível gravar %1: %2").arg(arquivo, saida12.errorString()));
    saida << "Certificado de TESTE gravado em " << arquivo << " (CNPJ " << cnpj
          << "): serve só para experimentar em homologação, nunca é aceito em produção" << Qt::endl;
    return 0;
}

} // namespace ComandosNFe
