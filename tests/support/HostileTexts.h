#pragma once

#include <QString>
#include <QStringList>

/// Texts that would run, end or change a script if they were written into it as they are. Where one would get to run
/// something it is the command `intrude`.
inline QStringList hostileTexts()
{
    return {
        "\"",
        "\\",
        "a\\",
        "\\\"",
        "\"; intrude; \"",
        "\\\"; intrude; //",
        "x; intrude",
        "x\nintrude\n",
        "x\r\nintrude;",
        "`intrude`",
        "$(intrude)",
        "\" + `intrude` + \"",
        "\"); intrude; print(\"",
        "x\"); intrude; //",
        "\", `intrude`, \"",
        "$gMainWindow",
        "%1",
        "%2%3 %9",
        "{NODE_CMD}",
        "{MAIN_MENU_NAME}{UTIL_CMD} -draw",
        "{FUNC_DELETE_ALL_NODES}()",
        "// x",
        "/* x",
        "-intrude",
        "-q9",
        " leading and trailing ",
        "tab\there",
        QString("bell\x07 escape\x1b[2J feed\x0c form\x0b delete\x7f"),
        QString::fromUtf8("\u202e\u05e9\u05dc\u05d5\u05dd \u0645\u0631\u062d\u0628\u0627\u202c"),
        QString::fromUtf8("\u6f2b\u753b \U0001f58c\ufe0f \u0085 \u2028 \ufeff e\u0301"),
        "#1 ^1s",
        "(1)",
        "on",
        "string",
        "shot|in",
        "12",
        QString(20000, QLatin1Char('x')),
        QString("\\\"").repeated(5000),
    };
}
