#pragma once

#include <QCoreApplication>
#include <QString>

/// Declares, inside a class, the static functions tr and trUtf8 with `context` as the translation context. The two are
/// equal: source texts are UTF-8 everywhere.
///
/// `comment` tells equal source texts apart; `n` chooses a plural form and replaces %n (-1: no number). Access is
/// public from here on, so the macro stands at the head of a class or before an access specifier.
///
///     class VX_LayerParameterSet : public ... {
///         VX_DECLARE_TRANSLATION("VX_LayerParameterSet")
///     public:
#define VX_DECLARE_TRANSLATION(context)                                                                                \
public:                                                                                                                \
    static QString tr(char const * text, char const * comment = nullptr) {                                             \
        return QCoreApplication::translate(context, text, comment);                                                    \
    }                                                                                                                  \
    static QString tr(char const * text, char const * comment, int n) {                                                \
        return QCoreApplication::translate(context, text, comment, n);                                                 \
    }                                                                                                                  \
    static QString trUtf8(char const * text, char const * comment = nullptr) {                                         \
        return tr(text, comment);                                                                                      \
    }                                                                                                                  \
    static QString trUtf8(char const * text, char const * comment, int n) {                                            \
        return tr(text, comment, n);                                                                                   \
    }

/// Declares, in the public part of a class with Q_OBJECT, the static function trUtf8, equal to its tr.
#define VX_DECLARE_TRUTF8                                                                                              \
    static QString trUtf8(char const * text, char const * comment = nullptr, int n = -1) {                             \
        return tr(text, comment, n);                                                                                   \
    }
