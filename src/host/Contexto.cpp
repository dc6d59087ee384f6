#include "Contexto.h"

Contexto &Contexto::Atual()
{
    static Contexto contexto;
    return contexto;
}

void Contexto::Reiniciar()
{
    *this = Contexto();
}
