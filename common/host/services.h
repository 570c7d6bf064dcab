#pragma once

#include "host/config/config.h"
#include "host/dialogs/dialog.h"
#include "host/net/restclient.h"
#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/savetofilelogic.h"
#include "host/text/simpleformatter.h"
#include "host/xml/xmlutils.h"
