#include "platform/Application.h"

#include "platform/Log.h"

namespace platform {

namespace {

Application::ErrorPresenter &currentPresenter()
{
    static Application::ErrorPresenter presenter;
    return presenter;
}

} // namespace

void Application::presentError(const Error &error)
{
    if (const auto &presenter = currentPresenter())
        presenter(error);
    else
        log("%@", error.description);
}

void Application::setErrorPresenter(ErrorPresenter presenter)
{
    currentPresenter() = std::move(presenter);
}

} // namespace platform
