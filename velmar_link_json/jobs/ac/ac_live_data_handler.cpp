#include "velmar_link_json/jobs/ac/ac_live_data_handler.hpp"

#include <utility>
#include <variant>

namespace velmar {

void AcLiveDataHandler::operator()(const AcLiveDataMessage& message) {
    if (const auto* header = std::get_if<AcLiveDataHeaderMessage>(&message)) {
        LiveDataHeaderEis copy = header->header;
        JobInfo info = header->jobInfo;
        dataset_ = EisDataset(std::move(copy), std::move(info));
        rows_ = 0;
        waveFragments_ = 0;
        finished_ = false;
    } else if (const auto* row = std::get_if<AcLiveDataRowMessage>(&message)) {
        dataset_.appendDataRow(row->row);
        ++rows_;
    } else if (std::holds_alternative<AcLiveDataWavesMessage>(message)) {
        ++waveFragments_;
    } else if (const auto* finished = std::get_if<AcLiveDataFinishedMessage>(&message)) {
        // The job information is set at construction only: the groups move into a new dataset.
        LiveDataHeaderEis header = dataset_.getHeader();
        JobInfo info = finished->jobInfo;
        dataset_ = EisDataset(std::move(header), std::move(dataset_.impedancesForWriting()),
                              std::move(dataset_.pathsForWriting()), std::move(dataset_.pathsWavesForWriting()),
                              std::move(dataset_.asyncPathsForWriting()), std::move(dataset_.potentiostatsForWriting()),
                              std::move(dataset_.metaForWriting()), std::move(info));
        finished_ = true;
    }
}

}  // namespace velmar
