#include "vantro/ai/services/LocalFormatService.h"

#include "vantro/ai/services/LocalFormatError.h"

namespace vantro {

QCoro::Task<QString> LocalFormatService::format(QString /*prompt*/, QString /*text*/)
{
    throw LocalFormatError(LocalFormatError::Kind::modelUnavailable);
    co_return {};
}

} // namespace vantro
