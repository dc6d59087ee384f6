#pragma once

#include "TDistribuicaoNFe.h"

#include <QByteArray>
#include <QString>

// The files of the documents addressed to the company: what one says, where it is filed.
namespace TArquivoInteresse {

// Reads a resNFe, nfeProc, resEvento or procEventoNFe; false with erro for anything else.
bool Ler(const QByteArray &xml, TNFeDeInteresse *doc, QString *erro);
// "<key>-resNFe.xml", "<key>-procNFe.xml" or "<key>-<tpEvento>-<seq>-evento.xml".
QString NomeArquivo(const TNFeDeInteresse &doc);
// <pastaDestino>/yyyy/MM/ of the key's month of issue.
QString PastaDoMes(const QString &pastaDestino, const QString &chave);
// Writes the document in its month's folder and sets doc->arquivo; false with erro.
bool Gravar(const QString &pastaDestino, const QByteArray &xml, TNFeDeInteresse *doc, QString *erro);
// Every document under pastaDestino, one row per note (the full XML when there is one) and one
// per event, newest first.
QList<TNFeDeInteresse> Listar(const QString &pastaDestino);

} // namespace TArquivoInteresse
