#include "host/framework/basicplugin.h"

BasicPlugin::~BasicPlugin() = default;
