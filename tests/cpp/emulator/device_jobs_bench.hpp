#pragma once

// A device model with the job module on a virtual clock, and recording connections.

#include "emulator/device_jobs/job_queue.hpp"
#include "emulator/device_jobs/virtual_scheduler.hpp"
#include "emulator_test_support.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator::testing {

using namespace std::chrono_literals;

class JobBench {
public:
    struct Client {
        std::string id;
        std::shared_ptr<RecordingPeer> peer;
    };

    explicit JobBench(DeviceJobsOptions options = {.queueCapacity = 2}, double timeScale = 1.0)
        : model(clock, modelOptions(timeScale)),
          queue(installDeviceJobs(model, std::move(options))),
          client(connect()) {}

    static DeviceModelOptions modelOptions(double timeScale) {
        DeviceModelOptions options;
        options.seed = 11;
        options.timeScale = timeScale;
        return options;
    }

    Client connect() {
        auto peer = std::make_shared<RecordingPeer>();
        ConnectionMeta meta;
        meta.remoteAddr = "127.0.0.1";
        meta.target = "/default";
        return {model.openConnection(meta, peer), peer};
    }

    /// Sends a request (a "request_id" added) and returns its reply.
    boost::json::object send(boost::json::object request, const Client* from = nullptr) {
        const Client& c = from != nullptr ? *from : client;
        const std::string id = "r" + std::to_string(++counter_);
        request["request_id"] = id;
        model.handleText(c.id, boost::json::serialize(request));
        for (const auto& frame : c.peer->texts()) {
            if (frame.is_object() && frame.at("type") == "REPLY" &&
                frame.at("request_id") == boost::json::value(id))
                return frame.as_object();
        }
        ADD_FAILURE() << "no reply to " << boost::json::serialize(request);
        return {};
    }

    static boost::json::object job(std::string_view type, boost::json::object parameters = {},
                                   boost::json::array stopConditions = {}) {
        return {{"type", type},
                {"parameters", std::move(parameters)},
                {"stop_conditions", std::move(stopConditions)},
                {"job_meta", boost::json::object{}}};
    }

    /// "/job/start" of a job; `extra` keys go to the top level (options).
    boost::json::object start(std::string_view type, boost::json::object parameters = {},
                              boost::json::object extra = {}, boost::json::array stopConditions = {}) {
        boost::json::object request{{"do", "/job/start"},
                                    {"job", job(type, std::move(parameters), std::move(stopConditions))}};
        for (auto& member : extra) request[member.key()] = member.value();
        return send(std::move(request));
    }

    boost::json::object check(std::string_view type, boost::json::object parameters = {},
                              boost::json::array stopConditions = {}) {
        return send({{"do", "/job/check_parameters"},
                     {"job", job(type, std::move(parameters), std::move(stopConditions))}});
    }

    /// The top-level "JOB_DONE" frames received by `c`, in order.
    static std::vector<boost::json::object> done(const Client& c) {
        std::vector<boost::json::object> out;
        for (const auto& frame : c.peer->texts()) {
            if (frame.is_object() && frame.at("type") == "JOB_DONE") out.push_back(frame.as_object());
        }
        return out;
    }
    std::vector<boost::json::object> done() const { return done(client); }

    /// The "JOB_DONE" frame of the job with this id; empty when it has not ended.
    boost::json::object doneOf(const boost::json::value& jobId) const {
        for (auto& frame : done()) {
            if (frame.at("job_id") == jobId) return frame;
        }
        return {};
    }

    /// The event objects of a type received by `c`, in order.
    static std::vector<boost::json::object> events(const Client& c, std::string_view type) {
        std::vector<boost::json::object> out;
        for (const auto& frame : c.peer->texts()) {
            if (frame.is_object() && frame.at("type") == "EVENT" &&
                frame.at("event").at("type").as_string() == type) {
                out.push_back(frame.at("event").as_object());
            }
        }
        return out;
    }
    std::vector<boost::json::object> events(std::string_view type) const { return events(client, type); }

    std::string statusOf(const boost::json::value& jobId) {
        const auto reply = send({{"do", "/job/info"}, {"job_id", jobId}});
        return std::string(reply.at("job_info").at("status").as_string());
    }

    static std::string code(const boost::json::object& frame) {
        const auto* error = frame.if_contains("error");
        return error != nullptr && error->is_object() ? std::string(error->at("code").as_string()) : "NONE";
    }

    VirtualScheduler clock;
    DeviceModel model;
    std::shared_ptr<JobQueue> queue;
    Client client;

private:
    int counter_ = 0;
};

/// A job that "/job/check_parameters" refuses, with the code and the first message parameter
/// (the key or derived quantity refused) of the refusal.
struct RefusalCase {
    const char* what;
    const char* type;
    boost::json::object parameters;
    const char* code;
    const char* parameter;
};

inline void expectRefusals(JobBench& bench, std::span<const RefusalCase> cases) {
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const auto reply = bench.check(c.type, c.parameters);
        EXPECT_EQ(JobBench::code(reply), c.code) << boost::json::serialize(reply);
        if (reply.contains("error")) {
            const auto& parameters = reply.at("error").at("message_parameters").as_array();
            ASSERT_FALSE(parameters.empty());
            EXPECT_EQ(parameters.at(0), boost::json::value(c.parameter));
        }
    }
}

inline const boost::json::object kSwitchOnMain{{"potentiostat", "MAIN:1:POT"},
                                               {"coupling", "POTENTIOSTATIC"},
                                               {"bias", 0.5},
                                               {"voltage_range_index", 0},
                                               {"compliance_range_index", 0}};

/// Parameters of a generated impedance spectrum ("eis").
inline const boost::json::object kEisGenerate{{"bias", 0.0},
                                              {"frequency_range",
                                               {{"type", "generate"},
                                                {"min_frequency", 100.0},
                                                {"max_frequency", 1e6},
                                                {"start_frequency", 1e4},
                                                {"points_per_decade_upper", 20},
                                                {"points_per_decade_lower", 5},
                                                {"pre_duration", 0.1},
                                                {"pre_waves", 1},
                                                {"meas_duration", 1.0},
                                                {"meas_waves", 5},
                                                {"amplitude", 0.01}}}};

}  // namespace velmar::emulator::testing
