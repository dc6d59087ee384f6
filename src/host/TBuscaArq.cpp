#include "TBuscaArq.h"

#include <QDir>
#include <QDirIterator>

bool TBuscaArq::Execute()
{
    m_ultimoCaminho.clear();
    if (Pasta.isEmpty() || NomeArq.isEmpty() || NomeArq.contains(u'/') || !QDir(Pasta).exists())
        return false;
    // Symbolic links to folders are not followed, so a link back to a parent cannot loop.
    QDirIterator it(Pasta, {NomeArq}, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    int melhorProfundidade = -1;
    while (it.hasNext()) {
        const QString caminho = QDir::cleanPath(it.next());
        if (it.fileName().compare(NomeArq, Qt::CaseInsensitive) != 0)
            continue;
        const int profundidade = int(caminho.count(u'/'));
        if (melhorProfundidade < 0 || profundidade < melhorProfundidade
            || (profundidade == melhorProfundidade && caminho < m_ultimoCaminho)) {
            melhorProfundidade = profundidade;
            m_ultimoCaminho = caminho;
        }
    }
    return !m_ultimoCaminho.isEmpty();
}
