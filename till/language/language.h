#pragma once

#include <QLocale>

class Config;

namespace till {

/// What the till speaks with the people in front of it.
enum class Language
{
    Russian,
    English
};

/// The language of the interface: "Till:language", otherwise the system's; English where the system
/// speaks neither.
/// @throws ConfigError when the setting is neither "ru" nor "en"; it names file, line and key.
[[nodiscard]] Language languageOf(const Config &config, const QLocale &system);
/// How amounts and dates are written in a language: as on this system where the system has that
/// language, otherwise as in Russia and in the United Kingdom.
[[nodiscard]] QLocale localeOf(Language language, const QLocale &system);

/// From now on `tr::Tr::ui` gives texts of this language, and `QLocale()` is the locale.
///
/// Replaces what was spoken before; saying it twice changes nothing. Needs a QCoreApplication:
/// texts are Russian without one, and it has to be said again to the next one.
void speak(Language language, const QLocale &locale);
/// The same with the language's own locale, whatever the system's is.
void speak(Language language);
/// The same as `Singleton<Config>` and the system have it.
/// @throws ConfigError as `languageOf`; what was spoken before goes on.
void speakAsConfigured();

} // namespace till
