#include "logger/engine/LogAssociation.h"

LogAssociation::LogAssociation(LogWriter* writer, Rule* rule) : writer_(writer), rule_(rule) {
    if (writer_ != nullptr) writer_->addParent();
}

LogAssociation::~LogAssociation() {
    LogWriter::Release(writer_);
}

bool LogAssociation::matchAndProcess(LogEntry* entry) {
    if (entry == nullptr || writer_ == nullptr || !writer_->isActive()) return false;
    if (rule_ != nullptr && !(rule_->isActive() && rule_->check(entry))) return false;
    writer_->write(entry, nullptr);
    wroteInCycle_ = true;
    return true;
}

void LogAssociation::endCycle() {
    if (!wroteInCycle_) return;
    wroteInCycle_ = false;
    writer_->endCycle();
}

unsigned int LogAssociation::writeFooter() {
    return writer_ == nullptr ? 0 : writer_->writeFooter();
}

void LogAssociation::configLogWriter(Logger& logger) {
    if (writer_ != nullptr) writer_->config(logger);
}

void LogAssociation::resetInputs() {
    if (writer_ != nullptr) writer_->resetInputs();
}

void LogAssociation::setWriter(LogWriter* writer) {
    if (writer != nullptr) writer->addParent();
    LogWriter::Release(writer_);
    writer_ = writer;
    wroteInCycle_ = false;
}
