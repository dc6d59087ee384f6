#pragma once

#include <QStringList>

class QTextStream;

namespace ComandosNFeServicos {

// nfe-status, nfe-send, nfe-cancel, nfe-print, nfe-cce: the NF-e actions against the authority.
int NfeStatus(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
int NfeSend(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
int NfeCancel(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
int NfePrint(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
int NfeCce(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosNFeServicos
