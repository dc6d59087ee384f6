#pragma once

#include <QByteArray>
#include <QString>

// The single-byte code page of Brazilian workstations. Qt has no converter for it without ICU.

// A character the code page cannot hold becomes '?'.
QByteArray ParaWindows1252(QStringView texto);
QString DeWindows1252(QByteArrayView bytes);
