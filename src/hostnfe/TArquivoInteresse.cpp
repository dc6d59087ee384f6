#include "TArquivoInteresse.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace TArquivoInteresse {

namespace {

const QHash<QString, QString> TipoDaRaiz = {
    {QStringLiteral("resNFe"), QStringLiteral("resumo")},
    {QStringLiteral("nfeProc"), QStringLiteral("nfe")},
    {QStringLiteral("resEvento"), QStringLiteral("evento")},
    {QStringLiteral("procEventoNFe"), QStringLiteral("evento")},
};

bool falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

} // namespace

bool Ler(const QByteArray &xml, TNFeDeInteresse *doc, QString *erro)
{
    QXmlStreamReader leitor(xml);
    // The first occurrence of each field is the one wanted: in an nfeProc the issuer comes
    // before the recipient, in a procEventoNFe the event before the authority's answer.
    QHash<QString, QString> campos;
    QString raiz, atual;
    while (!leitor.atEnd()) {
        const auto token = leitor.readNext();
        if (token == QXmlStreamReader::StartElement) {
            atual = leitor.name().toString();
            if (raiz.isEmpty())
                raiz = atual;
            else if (atual == QLatin1String("infNFe"))
                campos.insert(QStringLiteral("chNFe"), leitor.attributes().value(QLatin1String("Id")).mid(3).toString());
        } else if (token == QXmlStreamReader::Characters && !leitor.isWhitespace() && !campos.contains(atual)) {
            // An issuer with a CPF holds the place of the CNPJ, which is then the recipient's.
            campos.insert(atual == QLatin1String("CPF") && !campos.contains(QStringLiteral("CNPJ")) ? QStringLiteral("CNPJ") : atual,
                          leitor.text().toString().trimmed());
        } else if (token == QXmlStreamReader::EndElement) {
            atual.clear();
        }
    }
    if (leitor.hasError())
        return falhar(erro, QStringLiteral("XML inválido (%1, linha %2)").arg(leitor.errorString()).arg(leitor.lineNumber()));
    if (!TipoDaRaiz.contains(raiz))
        return falhar(erro, QStringLiteral("documento desconhecido: <%1>").arg(raiz));
    TNFeDeInteresse lido;
    lido.tipo = TipoDaRaiz.value(raiz);
    lido.chave = campos.value(QStringLiteral("chNFe"));
    if (lido.chave.size() != 44)
        return falhar(erro, QStringLiteral("<%1> sem chave de 44 caracteres").arg(raiz));
    lido.cnpjEmitente = campos.value(QStringLiteral("CNPJ"));
    lido.nomeEmitente = campos.value(QStringLiteral("xNome"));
    lido.valor = campos.value(QStringLiteral("vNF"));
    lido.completo = lido.tipo == QLatin1String("nfe");
    const bool evento = lido.tipo == QLatin1String("evento");
    lido.dhEmi = QDateTime::fromString(campos.value(evento ? QStringLiteral("dhEvento") : QStringLiteral("dhEmi")), Qt::ISODate);
    if (evento) {
        lido.tpEvento = campos.value(QStringLiteral("tpEvento")).toInt();
        lido.nSeqEvento = campos.value(QStringLiteral("nSeqEvento")).toInt();
        lido.nomeEmitente = campos.value(QStringLiteral("xEvento"), campos.value(QStringLiteral("descEvento")));
        if (lido.tpEvento <= 0)
            return falhar(erro, QStringLiteral("<%1> sem tipo de evento").arg(raiz));
    }
    *doc = lido;
    return true;
}

QString NomeArquivo(const TNFeDeInteresse &doc)
{
    if (doc.tipo == QLatin1String("evento"))
        return QStringLiteral("%1-%2-%3-evento.xml").arg(doc.chave).arg(doc.tpEvento).arg(doc.nSeqEvento, 2, 10, QLatin1Char('0'));
    return doc.chave + (doc.completo ? QStringLiteral("-procNFe.xml") : QStringLiteral("-resNFe.xml"));
}

QString PastaDoMes(const QString &pastaDestino, const QString &chave)
{
    // The key carries the year and month of issue (AAMM), so a note and its events meet.
    return QDir(pastaDestino).filePath(QStringLiteral("20%1/%2/").arg(chave.mid(2, 2), chave.mid(4, 2)));
}

bool Gravar(const QString &pastaDestino, const QByteArray &xml, TNFeDeInteresse *doc, QString *erro)
{
    const QString pasta = PastaDoMes(pastaDestino, doc->chave);
    const QString arquivo = pasta + NomeArquivo(*doc);
    QSaveFile f(arquivo);
    if (!QDir().mkpath(pasta) || !f.open(QIODevice::WriteOnly) || f.write(xml) != xml.size() || !f.commit())
        return falhar(erro, QStringLiteral("Não foi possível gravar o arquivo %1: %2").arg(QDir::toNativeSeparators(arquivo), f.errorString()));
    doc->arquivo = arquivo;
    if (!doc->completo && doc->tipo != QLatin1String("evento"))
        doc->completo = QFileInfo::exists(pasta + doc->chave + QStringLiteral("-procNFe.xml"));
    return true;
}

QList<TNFeDeInteresse> Listar(const QString &pastaDestino)
{
    QHash<QString, TNFeDeInteresse> notas;
    QList<TNFeDeInteresse> lista;
    QDirIterator it(pastaDestino, {QStringLiteral("*.xml")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile f(it.next());
        TNFeDeInteresse doc;
        if (!f.open(QIODevice::ReadOnly) || !Ler(f.readAll(), &doc, nullptr))
            continue;
        doc.arquivo = f.fileName();
        if (doc.tipo == QLatin1String("evento"))
            lista << doc;
        else if (!notas.contains(doc.chave) || doc.completo)
            notas.insert(doc.chave, doc);
    }
    lista += notas.values();
    std::sort(lista.begin(), lista.end(), [](const TNFeDeInteresse &a, const TNFeDeInteresse &b) {
        return a.dhEmi != b.dhEmi ? a.dhEmi > b.dhEmi : a.arquivo < b.arquivo;
    });
    return lista;
}

} // namespace TArquivoInteresse
