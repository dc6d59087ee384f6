#include "ComandosNFeServicos.h"

#include "ComandosHeadless.h"
#include "Contexto.h"
#include "PastaFiscal.h"
#include "TBuscaArq.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TDacce.h"
#include "TEnvioNFe.h"
#include "TImpressoraNFePdf.h"
#include "TRepD.h"
#include "UNFeAcoes.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScopeGuard>
#include <QTextStream>
#include <QXmlStreamReader>

#include <memory>

namespace ComandosNFeServicos {

namespace {

// One note's command: its line parsed, the console's dialogs in place while it lives, the note
// read into a list of its own.
class TPedidoNota final
{
public:
    TPedidoNota(QString comando, const char *uso, QTextStream &erros) : m_comando(std::move(comando)), m_uso(uso), m_erros(erros)
    {
        parser.addPositionalArgument(QStringLiteral("note"), QStringLiteral("EEE-CCCCCCC, or E-S-C"));
    }
    ~TPedidoNota()
    {
        if (m_dialogos)
            TDialogos::Definir(m_anteriores);
    }

    // 0 when the note is on the list; else the exit code, once the reason was written.
    int Preparar(const QStringList &argumentos, const QStringList &exigidas = {})
    {
        if (!parser.parse(QStringList{m_comando} + argumentos))
            return Recusar(parser.errorText());
        for (const QString &opcao : exigidas) {
            if (parser.value(opcao).trimmed().isEmpty())
                return Recusar(QStringLiteral("falta --") + opcao);
        }
        const auto pedida = ComandosHeadless::NotaPedida(parser, m_comando, m_uso, m_erros);
        if (!pedida)
            return 2;
        m_anteriores = TDialogos::Definido();
        m_dialogos = std::make_unique<ComandosHeadless::TDialogosContados>(
            parser.optionNames().contains(QLatin1String("yes")), m_erros);
        TDialogos::Definir(m_dialogos.get());
        repD = std::make_unique<TRepD>(TConexD::Conexao());
        if (!ComandosHeadless::LerDoBanco(*repD, *pedida, parser.positionalArguments().first().trimmed(), m_comando, m_erros))
            return 1;
        nota = UNFeAcoes::TNotaNFe::DaLinhaAtual(repD->Notas());
        return 0;
    }
    // The exit code of an action that did not go through: a line of its own when nothing was shown.
    int Falhou()
    {
        if (m_dialogos && m_dialogos->Mostrados() == 0)
            m_erros << "pavrel " << m_comando << ": nota " << nota.chave.DocStr() << ": nada foi feito" << Qt::endl;
        return 1;
    }
    int Recusar(const QString &motivo) { return ComandosHeadless::Recusar(m_erros, m_comando, motivo, m_uso); }

    QCommandLineParser parser;
    std::unique_ptr<TRepD> repD;
    UNFeAcoes::TNotaNFe nota;

private:
    QString m_comando;
    const char *m_uso;
    QTextStream &m_erros;
    TDialogos *m_anteriores = nullptr;
    std::unique_ptr<ComandosHeadless::TDialogosContados> m_dialogos;
};

// What the authority answered, as filed with the document: the first cStat and xMotivo of the
// file (the protocol of an nfeProc, the registration of a procEventoNFe). Empty when the file is
// not found.
QString RetornoArquivado(const QString &nomeArquivo)
{
    const QString pasta = PastaFiscal();
    TBuscaArq busca;
    busca.Pasta = pasta + QStringLiteral("NFe_Said");
    busca.NomeArq = nomeArquivo;
    if (pasta.isEmpty() || !busca.Execute())
        return {};
    QFile arquivo(busca.GetUltimoCaminho());
    if (!arquivo.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&arquivo);
    QString cStat;
    while (xml.readNext() != QXmlStreamReader::Invalid && !xml.atEnd()) {
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("cStat"))
            cStat = xml.readElementText();
        else if (xml.name() == QLatin1String("xMotivo") && !cStat.isEmpty())
            return cStat + QLatin1Char(' ') + xml.readElementText();
    }
    return {};
}

// The machine's default printer, for the commands.
class TImpressoraNFePadrao final : public TImpressoraNFe
{
public:
    bool Imprimir(const QString &nome, const TDesenho &desenhar, QString *erro) override
    {
        QPrinter impressora(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
        impressora.setDocName(nome);
        impressora.setPageSize(QPageSize(QPageSize::A4));
        if (!impressora.isValid()) {
            *erro = QStringLiteral("A impressora padrão (%1) não está disponível").arg(impressora.printerName());
            return false;
        }
        return desenhar(impressora, erro);
    }
};

// The print-outs go to `impressora` while the returned guard lives.
auto Imprimindo(TImpressoraNFe *impressora)
{
    TImpressoraNFe *anterior = TImpressoraNFe::Atual();
    TImpressoraNFe::Definir(impressora);
    return qScopeGuard([anterior] { TImpressoraNFe::Definir(anterior); });
}

QString Absoluto(const QString &arquivo)
{
    return QDir::toNativeSeparators(QFileInfo(arquivo).absoluteFilePath());
}

void Escrever(QTextStream &saida, const TRetornoNFe &retorno)
{
    if (retorno.cStat != 0)
        saida << retorno.cStat << ' ' << retorno.xMotivo << Qt::endl;
}

} // namespace

int NfeStatus(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("nfe-status");
    if (!argumentos.isEmpty())
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("argumento inesperado: ") + argumentos.first(), "");
    TEnvioNFe envio(TConexD::Conexao(), Contexto::Atual().empresa);
    QString erro;
    const bool emOperacao = envio.Status(&erro);
    Escrever(saida, envio.UltimoRetorno());
    if (emOperacao)
        return 0;
    erros << "pavrel " << comando << ": " << erro << Qt::endl;
    return 1;
}

int NfeSend(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    TPedidoNota pedido(QStringLiteral("nfe-send"), "NOTA [--yes]   (NOTA: EEE-CCCCCCC, ou E-S-C)", erros);
    pedido.parser.addOption({QStringLiteral("yes"), QStringLiteral("answer yes to the questions")});
    if (const int codigo = pedido.Preparar(argumentos))
        return codigo;
    if (!UNFeAcoes::EnviarNFe(*pedido.repD))
        return pedido.Falhou();
    const auto nota = UNFeAcoes::TNotaNFe::DaLinhaAtual(pedido.repD->Notas());
    const QString retorno = RetornoArquivado(nota.nfeChave + QStringLiteral("-procNFe.xml"));
    if (!retorno.isEmpty())
        saida << retorno << Qt::endl;
    saida << "NF-e " << nota.nfeNum << " chave " << nota.nfeChave << " protocolo " << nota.nfeProtocolo << Qt::endl;
    return 0;
}

int NfeCancel(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    TPedidoNota pedido(QStringLiteral("nfe-cancel"), "NOTA --justificativa TEXTO", erros);
    pedido.parser.addOption({QStringLiteral("justificativa"), QStringLiteral("15 to 255 characters"), QStringLiteral("TEXT")});
    if (const int codigo = pedido.Preparar(argumentos, {QStringLiteral("justificativa")}))
        return codigo;
    const QString justificativa = pedido.parser.value(QStringLiteral("justificativa"));
    const auto dada = [&justificativa](int, QString &texto) {
        texto = justificativa;
        return true;
    };
    if (!UNFeAcoes::CancelarNFe(TConexD::Conexao(), pedido.repD->Notas(), dada))
        return pedido.Falhou();
    const QString retorno = RetornoArquivado(pedido.nota.nfeChave + QStringLiteral("-110111-01-procEventoNFe.xml"));
    if (!retorno.isEmpty())
        saida << retorno << Qt::endl;
    saida << "NF-e " << pedido.nota.nfeNum << " cancelada em "
          << pedido.repD->Notas().FieldByName(QStringLiteral("nfe_dth_canc")).AsDateTime().toString(QStringLiteral("dd/MM/yyyy hh:mm:ss"))
          << Qt::endl;
    return 0;
}

int NfePrint(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    TPedidoNota pedido(QStringLiteral("nfe-print"), "NOTA [--pdf ARQUIVO]", erros);
    pedido.parser.addOption({QStringLiteral("pdf"), QStringLiteral("write into this PDF"), QStringLiteral("FILE")});
    if (const int codigo = pedido.Preparar(argumentos))
        return codigo;
    // The default printer when there is one, else a PDF named after the key in this folder.
    const bool naPadrao = !pedido.parser.isSet(QStringLiteral("pdf")) && !QPrinterInfo::defaultPrinterName().isEmpty();
    const QString arquivo = pedido.parser.isSet(QStringLiteral("pdf"))
        ? pedido.parser.value(QStringLiteral("pdf"))
        : QDir::current().filePath(QStringLiteral("DANFE-") + pedido.nota.nfeChave + QStringLiteral(".pdf"));
    TImpressoraNFePadrao padrao;
    TImpressoraNFePdf pdf(arquivo);
    const auto restaurar = Imprimindo(naPadrao ? static_cast<TImpressoraNFe *>(&padrao) : &pdf);
    if (!UNFeAcoes::ReimprimirNFe(TConexD::Conexao(), pedido.repD->Notas()))
        return pedido.Falhou();
    if (naPadrao)
        saida << "DANFE da NF-e " << pedido.nota.nfeChave << " enviado à impressora padrão" << Qt::endl;
    else
        saida << "PDF gravado em " << Absoluto(arquivo) << Qt::endl;
    return 0;
}

int NfeCce(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    TPedidoNota pedido(QStringLiteral("nfe-cce"), "NOTA --texto TEXTO [--pdf ARQUIVO]", erros);
    pedido.parser.addOptions({
        {QStringLiteral("texto"), QStringLiteral("15 to 1000 characters"), QStringLiteral("TEXT")},
        {QStringLiteral("pdf"), QStringLiteral("the letter's print-out"), QStringLiteral("FILE")},
    });
    if (const int codigo = pedido.Preparar(argumentos, {QStringLiteral("texto")}))
        return codigo;
    TEnvioNFe envio(TConexD::Conexao(), pedido.nota.chave.emprCod);
    int seq = 0;
    const auto enviar = [&](const QString &chave, int docTipo, const QString &descricao) {
        QString erro;
        const bool registrada =
            envio.CartaCorrecao(chave, docTipo, descricao, pedido.parser.value(QStringLiteral("texto")), &seq, &erro);
        Escrever(saida, envio.UltimoRetorno());
        if (!registrada)
            MensagemErro(erro);
        return registrada;
    };
    if (!UNFeAcoes::CartaCorrecaoNFe(pedido.repD->Notas(), enviar))
        return pedido.Falhou();
    saida << "Carta de correção " << seq << " da NF-e " << pedido.nota.nfeChave << " registrada" << Qt::endl;
    if (!pedido.parser.isSet(QStringLiteral("pdf")))
        return 0;
    TImpressoraNFePdf pdf(pedido.parser.value(QStringLiteral("pdf")));
    const auto restaurar = Imprimindo(&pdf);
    QString erro;
    if (!TDacce::Imprimir(TConexD::Conexao(), pedido.nota.chave.emprCod, pedido.nota.nfeChave, seq, &erro)) {
        erros << "pavrel nfe-cce: " << erro << Qt::endl;
        return 1;
    }
    saida << "PDF gravado em " << Absoluto(pdf.Arquivo()) << Qt::endl;
    return 0;
}

} // namespace ComandosNFeServicos
