#pragma once

#include <string>

namespace velmar {

struct ErrorObject;

namespace ErrorFormatters {

/// Turns an ErrorObject into its message text.
class AbstractFormatter {
public:
    virtual ~AbstractFormatter() = default;
    virtual std::string getFormatted(const ErrorObject& error) const = 0;
};

/// Fills the format's placeholders with the parameters (format_with_dynamic_params).
class DefaultErrorFormatter final : public AbstractFormatter {
public:
    std::string getFormatted(const ErrorObject& error) const override;
};

/// The one shared instance used by the exception and the script binding.
const DefaultErrorFormatter& defaultFormatter();

}  // namespace ErrorFormatters
}  // namespace velmar
