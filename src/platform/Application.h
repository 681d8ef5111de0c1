#pragma once

#include "platform/Error.h"
#include <functional>

namespace platform {

/// The application, for those who stand below its windows. Main thread.
class Application
{
public:
    using ErrorPresenter = std::function<void(const Error &error)>;

    /// Tells the user of the error, by whatever the application has set for it; without that the
    /// log has it.
    static void presentError(const Error &error);

    /// Set by the application, or by a test; null means none.
    static void setErrorPresenter(ErrorPresenter presenter);
};

} // namespace platform
