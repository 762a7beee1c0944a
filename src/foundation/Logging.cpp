#include "Logging.h"

Q_LOGGING_CATEGORY(lcApp, "de.vexa.Ravlin.app")
Q_LOGGING_CATEGORY(lcDefaults, "de.vexa.Ravlin.defaults")
Q_LOGGING_CATEGORY(lcLanguage, "de.vexa.Ravlin.language")
Q_LOGGING_CATEGORY(lcLogin, "de.vexa.Ravlin.login")
Q_LOGGING_CATEGORY(lcDiscovery, "de.vexa.Ravlin.discovery")
Q_LOGGING_CATEGORY(lcBar, "de.vexa.Ravlin.bar")
Q_LOGGING_CATEGORY(lcRules, "de.vexa.Ravlin.rules")
Q_LOGGING_CATEGORY(lcHideEngine, "de.vexa.Ravlin.HideEngine")
Q_LOGGING_CATEGORY(lcStats, "de.vexa.Ravlin.stats")
Q_LOGGING_CATEGORY(lcWeather, "de.vexa.Ravlin.weather")
Q_LOGGING_CATEGORY(lcUi, "de.vexa.Ravlin.ui")
Q_LOGGING_CATEGORY(lcSandbox, "de.vexa.Ravlin.sandbox")
