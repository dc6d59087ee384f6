#pragma once

class TRepF;

// The F6 type switch: moves the type combo on and fits the item fields to the type chosen.
class TRepF_KeyDown_F6 final
{
public:
    TRepF_KeyDown_F6() = delete;

    static void Exec(TRepF &f, bool avanca);
    // The type may change unless the current note is posted and is not being inserted.
    static bool Pode(const TRepF &f);
    static void AvancaTipoDocComboBox(TRepF &f);
    static void LiberaTodos(TRepF &f);
    static void AjustaControles(TRepF &f, int tipoCod);
};
