#pragma once

#include "shop/outside.h"

#include "common/host/documents.h"

using shop::Config;
using shop::DBQueueBroker;
using shop::Dialog;
using shop::EDialogDuration;
using shop::EDialogKind;
using shop::InputTextFormParameters;
using shop::RestClient;
using shop::SaveToFileLogic;
using shop::SimpleFormatter;
using shop::TextPrinter;
