#pragma once

#include <QString>

#include <optional>

// A number typed the Brazilian way ("1.234,56", "1234,56", "-0,5", "12") as plain decimal text
// with '.', every digit kept ("1.234,50" -> "1234.5", "-0,0" -> "0"), for readers that must not
// go through a double. A '.' groups thousands, so exactly three digits follow it; anything else,
// and more whole digits than the money and quantity columns hold (14), gives nullopt.
// Kept apart from Valores.h so that Money can read typed text without it.
std::optional<QString> NumeroBRParaPonto(const QString &text);
