// SPDX-License-Identifier: Apache-2.0
#include "client/window/client_requests.h"

namespace zepa {

ClientRequests& ClientRequests::instance()
{
    static ClientRequests requests;
    return requests;
}

} // namespace zepa
