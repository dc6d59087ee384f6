#pragma once

#include <QString>
#include <QStringList>

// A routine's trace, collected line by line and shown in a plain message box only when the
// context's debug level equals the routine's own number.
class TRastroDebug final
{
public:
    explicit TRastroDebug(int nivel);

    bool Ativo() const;
    void Add(const QString &linha);
    QString Texto() const { return m_linhas.join(QStringLiteral("\r\n")); }
    // Shows header + trace when active; nothing otherwise.
    void Exibir(const QString &cabecalho) const;

    // "modo_debug=72\r\nTRepD.BaixarNota;\r\n\r\n"
    static QString CabecalhoLongo(int nivel, const QString &rotina);
    // "modo debug 80;DesbaixarAct;"
    static QString CabecalhoCurto(int nivel, const QString &rotina);

private:
    int m_nivel;
    QStringList m_linhas;
};

// Where the other trace lines go ("ini", "fim", "vai ..."): nowhere, on purpose.
inline void RastroHook(const QString &) {}
