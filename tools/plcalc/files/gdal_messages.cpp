#include "files/gdal_messages.h"

namespace {

// A longer message would hide the advice that follows it.
constexpr std::size_t kMaxLength = 160;

std::string on_one_line(const char* text)
{
    std::string line;
    for (; *text != '\0'; ++text) {
        const bool blank = static_cast<unsigned char>(*text) <= ' ';
        if (!blank)
            line += *text;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    while (!line.empty() && (line.back() == ' ' || line.back() == '.'))
        line.pop_back();
    if (line.size() > kMaxLength)
        line = line.substr(0, kMaxLength) + "...";
    return line;
}

}  // namespace

namespace tool {

GdalMessages::GdalMessages()
{
    CPLPushErrorHandlerEx(&GdalMessages::receive, this);
}

GdalMessages::~GdalMessages()
{
    CPLPopErrorHandler();
}

void GdalMessages::clear()
{
    failed_ = false;
    failure_.clear();
    warning_.clear();
}

std::string GdalMessages::remark() const
{
    return text().empty() ? std::string() : " (" + text() + ")";
}

void CPL_STDCALL GdalMessages::receive(CPLErr level, CPLErrorNum, const char* text)
{
    GdalMessages& self = *static_cast<GdalMessages*>(CPLGetErrorHandlerUserData());
    if (level >= CE_Failure && !self.failed_) {
        self.failed_ = true;
        self.failure_ = on_one_line(text);
    } else if (level == CE_Warning && self.warning_.empty()) {
        self.warning_ = on_one_line(text);
    }
}

}  // namespace tool
