#pragma once

#include <QString>

// Finds a file by name in a folder and, failing that, in its subfolders: the shallowest match
// wins, and among equally deep ones the first by path. Names match without regard to case, as
// files copied from other systems come in either.
class TBuscaArq final
{
public:
    QString Pasta;
    QString NomeArq;

    // True when the file was found; its path is then GetUltimoCaminho().
    bool Execute();
    QString GetUltimoCaminho() const { return m_ultimoCaminho; }

private:
    QString m_ultimoCaminho;
};
