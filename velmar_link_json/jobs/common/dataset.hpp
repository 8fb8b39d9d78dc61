#pragma once

#include "json_common/protocol/event_type.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "xml/xml_serializable.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace velmar {

/// One job result that has gone into a dataset.
struct DatasetInfo {
    /// "DC" or "AC".
    std::string type;
    /// The long job name ("cv", or "DC Combined" after appending results of other kinds).
    std::string job_type;
    std::string job_type_short;
    /// Number of rows that this job result contributed.
    std::size_t length = 0;
    /// First value of the time column; NaN when there are no rows.
    double start_time = 0.0;
    JobInfo job_info;
};

/// The interface of every result dataset.
class AbstractDataset {
public:
    virtual ~AbstractDataset() = default;
    /// Information on the job that produced the dataset (the first one, after appends).
    virtual const JobInfo& getJobInfo() const = 0;
    /// Summary of the dataset as a whole.
    virtual DatasetInfo getInfo() const = 0;
    virtual DatasetType getDatasetType() const = 0;
};

/// Common base of the result datasets: the job information and the list of job results that
/// have been merged into the dataset. Single-threaded. Every dataset has an XML form (the
/// `dataset` element of the measurement file); the writers and readers are defined by the
/// velmar_xml library.
class DataSet : public AbstractDataset, public VXml::XmlSerializable {
public:
    DataSet() = default;
    explicit DataSet(JobInfo&& jobInfo) : jobInfo_(std::move(jobInfo)) {}

    const JobInfo& getJobInfo() const override { return jobInfo_; }

    /// One entry per job result in this dataset, in the order they were joined. A dataset made
    /// from one job reports one entry describing itself as it is now.
    std::vector<DatasetInfo> getIncludedDatasets() const;

protected:
    DataSet(const DataSet&) = default;
    DataSet(DataSet&&) noexcept = default;
    DataSet& operator=(const DataSet&) = default;
    DataSet& operator=(DataSet&&) noexcept = default;

    /// Appends the other's list behind this one's (this dataset's own entry is fixed first).
    void mergeIncludedDatasets(const DataSet& other);
    /// Replaces the list (used by readers that restore a stored list).
    void setIncludedDatasets(std::vector<DatasetInfo> included) { includedDatasets_ = std::move(included); }

    JobInfo jobInfo_;
    /// Empty while the dataset holds only its own job's result; getIncludedDatasets() then
    /// describes the dataset itself, so that the entry follows rows appended afterwards.
    std::vector<DatasetInfo> includedDatasets_;
};

}  // namespace velmar
