#pragma once

#include <QProcess>
#include <QString>

/// A locale that writes numbers as 1.234,5, for the places where a machine has none.
constexpr char kGermanLocale[] = "de_DE.UTF-8";

/// Makes the locale in a folder, which LOCPATH has to name then. False when the system's locale sources are missing.
inline bool makeGermanLocale(const QString& folder)
{
    QProcess::execute("localedef", {"--quiet", "-i", "de_DE", "-f", "UTF-8", folder + '/' + kGermanLocale});
    QProcess shown;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LOCPATH", folder);
    environment.insert("LC_ALL", kGermanLocale);
    shown.setProcessEnvironment(environment);
    shown.start("locale", {"decimal_point"});
    return shown.waitForFinished() && shown.readAll().trimmed() == ",";
}
