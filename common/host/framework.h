#pragma once

// The plug-in's side names the host's headers here and nowhere else: built against another host's
// package, the files of this folder are what changes.

#include "host/framework/action.h"
#include "host/framework/actiontrigger.h"
#include "host/framework/activitynotifier.h"
#include "host/framework/baseactivitylistener.h"
#include "host/framework/basicexception.h"
#include "host/framework/basicloyaltysystem.h"
#include "host/framework/currenttime.h"
#include "host/framework/documentwatcher.h"
#include "host/framework/event.h"
#include "host/framework/finally.h"
#include "host/framework/mockfactory.h"
#include "host/framework/singleton.h"
#include "host/framework/tr.h"
