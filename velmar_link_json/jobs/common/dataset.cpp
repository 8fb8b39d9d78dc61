#include "velmar_link_json/jobs/common/dataset.hpp"

namespace velmar {

std::vector<DatasetInfo> DataSet::getIncludedDatasets() const {
    if (includedDatasets_.empty()) return {getInfo()};
    return includedDatasets_;
}

void DataSet::mergeIncludedDatasets(const DataSet& other) {
    // Taken before fixing our own entry, so that appending a dataset to itself works too.
    auto others = other.getIncludedDatasets();
    if (includedDatasets_.empty()) includedDatasets_.push_back(getInfo());
    includedDatasets_.insert(includedDatasets_.end(), std::make_move_iterator(others.begin()),
                             std::make_move_iterator(others.end()));
}

}  // namespace velmar
