#include "json_common/exact_json.hpp"

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/error.hpp>
#include <boost/json/value_stack.hpp>

#include <charconv>
#include <limits>

namespace velmar {

namespace json = boost::json;

namespace {

// A basic_parser handler that builds values like the library's own parser, except that
// doubles are converted from the collected number text.
class ExactValueHandler {
public:
    static constexpr std::size_t max_object_size = std::size_t(-1);
    static constexpr std::size_t max_array_size = std::size_t(-1);
    static constexpr std::size_t max_key_size = std::size_t(-1);
    static constexpr std::size_t max_string_size = std::size_t(-1);

    json::value_stack stack;
    std::string numberText;

    bool on_document_begin(boost::system::error_code&) { return true; }
    bool on_document_end(boost::system::error_code&) { return true; }
    bool on_array_begin(boost::system::error_code&) { return true; }
    bool on_array_end(std::size_t n, boost::system::error_code&) {
        stack.push_array(n);
        return true;
    }
    bool on_object_begin(boost::system::error_code&) { return true; }
    bool on_object_end(std::size_t n, boost::system::error_code&) {
        stack.push_object(n);
        return true;
    }
    bool on_string_part(json::string_view s, std::size_t, boost::system::error_code&) {
        stack.push_chars(s);
        return true;
    }
    bool on_string(json::string_view s, std::size_t, boost::system::error_code&) {
        stack.push_string(s);
        return true;
    }
    bool on_key_part(json::string_view s, std::size_t, boost::system::error_code&) {
        stack.push_chars(s);
        return true;
    }
    bool on_key(json::string_view s, std::size_t, boost::system::error_code&) {
        stack.push_key(s);
        return true;
    }
    bool on_number_part(json::string_view s, boost::system::error_code&) {
        numberText.append(s.data(), s.size());
        return true;
    }
    bool on_int64(std::int64_t i, json::string_view, boost::system::error_code&) {
        numberText.clear();
        stack.push_int64(i);
        return true;
    }
    bool on_uint64(std::uint64_t u, json::string_view, boost::system::error_code&) {
        numberText.clear();
        stack.push_uint64(u);
        return true;
    }
    bool on_double(double d, json::string_view s, boost::system::error_code&) {
        const char* first = s.data();
        const char* last = s.data() + s.size();
        if (!numberText.empty()) {
            numberText.append(s.data(), s.size());
            first = numberText.data();
            last = numberText.data() + numberText.size();
        }
        double exact = 0.0;
        const auto [end, error] = std::from_chars(first, last, exact);
        // from_chars reports out-of-range for overflow and underflow; the parser's own
        // value (infinity or zero) is the right answer there.
        if (error == std::errc{} && end == last) d = exact;
        numberText.clear();
        stack.push_double(d);
        return true;
    }
    bool on_bool(bool b, boost::system::error_code&) {
        stack.push_bool(b);
        return true;
    }
    bool on_null(boost::system::error_code&) {
        stack.push_null();
        return true;
    }
    bool on_comment_part(json::string_view, boost::system::error_code&) { return true; }
    bool on_comment(json::string_view, boost::system::error_code&) { return true; }
};

}  // namespace

json::value parseJsonExact(std::string_view text, boost::system::error_code& ec) {
    json::basic_parser<ExactValueHandler> parser{json::parse_options{}};
    parser.handler().stack.reset();
    const auto consumed = parser.write_some(false, text.data(), text.size(), ec);
    if (!ec && consumed < text.size()) ec = json::error::extra_data;
    if (ec) return nullptr;
    return parser.handler().stack.release();
}

json::value parseJsonExact(std::string_view text) {
    boost::system::error_code ec;
    auto value = parseJsonExact(text, ec);
    if (ec) boost::throw_exception(boost::system::system_error(ec));
    return value;
}

}  // namespace velmar
