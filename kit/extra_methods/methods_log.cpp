// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/methods_log.h"

Q_LOGGING_CATEGORY(lcZepaMethods, "zepa.methods")
