#pragma once

class TClientManager;

// Column widths of the note list, in characters, wide enough for the values each column holds;
// the grid widens a column further when its caption needs it.
class TClientManager1_PrepGrid final
{
public:
    static void Executar(TClientManager &manager);
};
