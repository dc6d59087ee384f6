#include "ComandosNFeServicos.h"

#include "ComandosHeadless.h"
#include "Contexto.h"
#include "PastaFiscal.h"
#include "TBuscaArq.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TEnvioNFe.h"
#include "TRepD.h"
#include "UNFeAcoes.h"

#include <QCommandLineParser>
#include <QFile>
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

int NfePrint(const QStringList &, QTextStream &, QTextStream &) { return 1; }

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
    return 0;
}

} // namespace ComandosNFeServicos
