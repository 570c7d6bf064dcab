#pragma once

#include "shop/desk.h"
#include "shop/loyalty.h"
#include "shop/words.h"

#include "common/host/documents.h"

using shop::ActionTrigger;
using shop::ActivityNotifier;
using shop::BaseActivityListener;
using shop::BasicException;
using shop::CurrentTime;
using shop::DocumentWatcher;
using shop::Event;
using shop::Finally;
using shop::LoyaltySystemOption;
