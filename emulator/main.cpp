// velmar-emulator: the emulated workstation as a command-line program.
#include "emulator/cell/cell_model.hpp"
#include "emulator/device_jobs/job_queue.hpp"
#include "emulator/server/command_line.hpp"
#include "emulator/server/emulator_server.hpp"

#include <csignal>
#include <iostream>
#include <string_view>
#include <vector>

int main(int argc, char** argv) {
    using namespace velmar::emulator;
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    auto commandLine = parseCommandLine(arguments);
    if (!commandLine) {
        std::cerr << "velmar-emulator: " << commandLine.error() << "\n\n" << usageText();
        return 2;
    }
    if (commandLine->help) {
        std::cout << usageText();
        return 0;
    }

    if (auto cell = parseCellSpec(commandLine->cellSpec); !cell) {
        std::cerr << "velmar-emulator: invalid --cell: " << cell.error() << "\n\n" << usageText();
        return 2;
    }

    ServerOptions options{
        .host = commandLine->host,
        .port = commandLine->port,
        .handshake = {.protocolVersion = commandLine->protocolVersion},
        .idleExit = commandLine->idleExit,
        .model = {.seed = commandLine->seed,
                  .timeScale = commandLine->timeScale,
                  .resourceCapacity = commandLine->resourceCapacity,
                  .resourceDescriptionCapacity = commandLine->resourceDescriptionBytes},
        .limits = {.maxConnections = commandLine->maxConnections,
                   .maxMessageBytes = commandLine->maxMessageBytes,
                   .maxIncomingBytes = commandLine->maxIncomingBytes,
                   .maxOutgoingBytes = commandLine->maxOutgoingBytes,
                   .maxOutgoingFrames = commandLine->maxOutgoingFrames},
    };
    if (commandLine->user) options.handshake.credentials.emplace(*commandLine->user, *commandLine->password);

    EmulatorServer server(std::move(options));
    installDeviceJobs(server.model(), {.queueCapacity = commandLine->queueSize,
                                       .cellSpec = commandLine->cellSpec,
                                       .endedJobsKept = commandLine->jobsKept,
                                       .endedJobsKeptBytes = commandLine->jobsKeptBytes});
    auto endpoint = server.listen();
    if (!endpoint) {
        std::cerr << "velmar-emulator: " << endpoint.error() << '\n';
        return 1;
    }
    server.stopOnSignals();
    // Scripts and test fixtures wait for exactly this line to learn the port.
    std::cout << "listening on " << endpoint->address << ':' << endpoint->port << std::endl;
    server.run();
    // A second SIGTERM while the server is torn down must not turn the clean exit into a
    // death by signal: from here on both stay pending until the process has exited.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
    return 0;
}
