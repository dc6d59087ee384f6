#include "TEnderecosNFe.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QStringList>

namespace {

constexpr char kAutorizadores[] = "nfe-authorizers.tsv";
constexpr char kServicos[] = "nfe-webservices.tsv";

// One table: the rows as column name -> value, and where it was read from.
struct TTabela
{
    QString origem;
    QString erro;
    QList<QHash<QString, QString>> linhas;
};

// A shop's copy wins: PAVREL_NFE_WEBSERVICES, then beside the program, then the built-in one.
QString Localizar(const QString &arquivo)
{
    QStringList pastas;
    const QString doAmbiente = qEnvironmentVariable("PAVREL_NFE_WEBSERVICES");
    if (!doAmbiente.isEmpty())
        pastas << doAmbiente;
    if (QCoreApplication::instance())
        pastas << QCoreApplication::applicationDirPath() + QStringLiteral("/nfe-webservices");
    for (const QString &pasta : pastas) {
        const QString caminho = QDir(pasta).filePath(arquivo);
        if (QFile::exists(caminho))
            return caminho;
    }
    return QStringLiteral(":/webservices/") + arquivo;
}

TTabela Ler(const QString &arquivo)
{
    TTabela tabela;
    tabela.origem = Localizar(arquivo);
    QFile f(tabela.origem);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) {
        tabela.erro = QStringLiteral("Não foi possível ler a tabela de endereços da NF-e %1: %2").arg(tabela.origem, f.errorString());
        return tabela;
    }
    QStringList colunas;
    while (!f.atEnd()) {
        const QString linha = QString::fromUtf8(f.readLine()).trimmed();
        if (linha.isEmpty() || linha.startsWith(QLatin1Char('#')))
            continue;
        const QStringList campos = linha.split(QLatin1Char('\t'));
        if (colunas.isEmpty()) {
            colunas = campos;
            continue;
        }
        QHash<QString, QString> valores;
        for (int i = 0; i < colunas.size(); ++i)
            valores.insert(colunas.at(i).trimmed(), i < campos.size() ? campos.at(i).trimmed() : QString());
        tabela.linhas.append(valores);
    }
    return tabela;
}

// Read once per process; the tables change only with a new start of the program.
const TTabela &Autorizadores()
{
    static const TTabela tabela = Ler(QString::fromLatin1(kAutorizadores));
    return tabela;
}

const TTabela &Servicos()
{
    static const TTabela tabela = Ler(QString::fromLatin1(kServicos));
    return tabela;
}

QString ColunaDaUf(const QString &uf, const QString &coluna)
{
    const QString procurada = uf.trimmed().toUpper();
    for (const auto &linha : Autorizadores().linhas)
        if (linha.value(QStringLiteral("uf")) == procurada)
            return linha.value(coluna);
    return {};
}

QString NomeAmbiente(int tpAmb)
{
    return tpAmb == 1 ? QStringLiteral("produção") : QStringLiteral("homologação");
}

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

// Scheme, host and port of PAVREL_NFE_ENDPOINT over the table's address; its path stays.
bool Redirecionar(QUrl *url, QString *erro)
{
    const QString endpoint = qEnvironmentVariable("PAVREL_NFE_ENDPOINT").trimmed();
    if (endpoint.isEmpty())
        return true;
    const QUrl destino(endpoint, QUrl::StrictMode);
    if (!destino.isValid() || destino.scheme().isEmpty() || destino.host().isEmpty())
        return Falhar(erro, QStringLiteral("Endereço da SEFAZ inválido em PAVREL_NFE_ENDPOINT: %1").arg(endpoint));
    url->setScheme(destino.scheme());
    url->setHost(destino.host());
    url->setPort(destino.port());
    return true;
}

} // namespace

namespace TEnderecosNFe {

QString Autorizador(const QString &uf)
{
    return ColunaDaUf(uf, QStringLiteral("authorizer"));
}

QString Contingencia(const QString &uf)
{
    return ColunaDaUf(uf, QStringLiteral("contingency"));
}

bool Servico(const QString &autorizador, int tpAmb, const QString &operacao, TServicoNFe *servico, QString *erro)
{
    const TTabela &tabela = Servicos();
    if (!tabela.erro.isEmpty())
        return Falhar(erro, tabela.erro);
    if (autorizador.isEmpty())
        return Falhar(erro, QStringLiteral("A UF da empresa não tem autorizador da NF-e em %1 (serviço %2)")
                                .arg(Autorizadores().origem, operacao));
    const QString amb = QString::number(tpAmb == 1 ? 1 : 2);
    for (const auto &linha : tabela.linhas) {
        if (linha.value(QStringLiteral("authorizer")) != autorizador || linha.value(QStringLiteral("tpAmb")) != amb
            || linha.value(QStringLiteral("operation")) != operacao)
            continue;
        TServicoNFe s;
        s.autorizador = autorizador;
        s.operacao = operacao;
        s.metodo = linha.value(QStringLiteral("method"));
        s.versao = linha.value(QStringLiteral("version"));
        s.url = QUrl(linha.value(QStringLiteral("url")), QUrl::StrictMode);
        if (!s.url.isValid() || s.url.host().isEmpty() || s.metodo.isEmpty())
            return Falhar(erro, QStringLiteral("Endereço inválido do serviço %1 do autorizador %2 (%3) em %4: %5")
                                    .arg(operacao, autorizador, NomeAmbiente(tpAmb), tabela.origem,
                                         linha.value(QStringLiteral("url"))));
        if (!Redirecionar(&s.url, erro))
            return false;
        if (servico)
            *servico = s;
        return true;
    }
    return Falhar(erro, QStringLiteral("O serviço %1 do autorizador %2 em %3 não está em %4")
                            .arg(operacao, autorizador, NomeAmbiente(tpAmb), tabela.origem));
}

} // namespace TEnderecosNFe
