#pragma once

#include "velmar_link_json/jobs/ac/ac_live_data.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"

namespace velmar {

/// Collects an impedance job's live data into an EisDataset: the header starts a new dataset,
/// each row is appended with its waves, the finished notice stores the final job information.
/// Wave fragments are previews and are not collected. Single-threaded use: call it from the
/// handler only, read the dataset after the job has ended.
class AcLiveDataHandler {
public:
    void operator()(const AcLiveDataMessage& message);
    /// A handler function that feeds this collector (which must outlive the job's run).
    AcLiveDataHandlerFunction asFunction() {
        return [this](const AcLiveDataMessage& message) { (*this)(message); };
    }
    const EisDataset& getDataset() const { return dataset_; }
    EisDataset takeDataset() { return std::move(dataset_); }
    bool isFinished() const { return finished_; }
    /// Rows and wave fragments received since the last header.
    std::size_t getRowCount() const { return rows_; }
    std::size_t getWaveFragmentCount() const { return waveFragments_; }

private:
    EisDataset dataset_;
    std::size_t rows_ = 0;
    std::size_t waveFragments_ = 0;
    bool finished_ = false;
};

}  // namespace velmar
