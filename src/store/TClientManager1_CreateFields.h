#pragma once

class TClientDataSet;

// Declares the columns of the note list, in grid order, with their captions and display
// formats; the program's own columns (type number, flags as booleans, party code) are hidden.
class TClientManager1_CreateFields final
{
public:
    static void Executar(TClientDataSet &notas);
};
