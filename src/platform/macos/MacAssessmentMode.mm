#include "MacAssessmentMode.h"

#import <Foundation/Foundation.h>
#include <dlfcn.h>
#include <objc/message.h>
#include <objc/runtime.h>

namespace ravlin {
namespace {

const char* const frameworkPath = "/System/Library/PrivateFrameworks/MenuBarClientCore.framework/MenuBarClientCore";

class MacAssertion final : public AssessmentAssertion {
public:
    explicit MacAssertion(id assertion) : m_assertion(assertion) {}
    void invalidate() override
    {
        if (m_assertion)
            ((void (*)(id, SEL))objc_msgSend)(m_assertion, sel_registerName("invalidate"));
    }
    id object() const { return m_assertion; }

private:
    id m_assertion;
};

} // namespace

MacAssessmentMode::MacAssessmentMode()
{
    if (!dlopen(frameworkPath, RTLD_NOW)) // mode 2: bind every symbol now
        return;
    Class assertion = NSClassFromString(@"MBAssessmentModeAssertion");
    Class config = NSClassFromString(@"MBAssessmentModeConfiguration");
    if (!assertion || !config)
        return;
    if (![assertion instancesRespondToSelector:sel_registerName("activateWithConfiguration:completionHandler:")]
        || ![assertion instancesRespondToSelector:sel_registerName("invalidate")]
        || ![config instancesRespondToSelector:sel_registerName("initWithAllowedSystemItems:allowedBundleIdentifiers:")])
        return;
    m_assertionClass = (__bridge void*)assertion;
    m_configClass = (__bridge void*)config;
}

bool MacAssessmentMode::isAvailable() const
{
    return m_assertionClass && m_configClass;
}

std::shared_ptr<AssessmentAssertion> MacAssessmentMode::activate(const std::vector<int>& allowedSystemItems, const QStringList& allowedBundleIDs,
                                                                 std::function<void(std::optional<PlatformError>)> completion)
{
    if (!isAvailable())
        return nullptr;
    NSMutableArray* items = [NSMutableArray array];
    for (int id : allowedSystemItems)
        [items addObject:@(id)];
    NSMutableArray* owners = [NSMutableArray array];
    for (const QString& bundle : allowedBundleIDs)
        [owners addObject:bundle.toNSString()];

    Class configClass = (__bridge Class)m_configClass;
    id config = ((id (*)(id, SEL))objc_msgSend)((id)configClass, sel_registerName("alloc"));
    if (config)
        config = ((id (*)(id, SEL, id, id))objc_msgSend)(config, sel_registerName("initWithAllowedSystemItems:allowedBundleIdentifiers:"), items, owners);
    if (!config)
        return nullptr;

    Class assertionClass = (__bridge Class)m_assertionClass;
    id assertion = [[assertionClass alloc] init];
    auto result = std::make_shared<MacAssertion>(assertion);
    auto shared = std::make_shared<std::function<void(std::optional<PlatformError>)>>(std::move(completion));
    void (^handler)(NSError*) = ^(NSError* error) {
        // The framework answers on a thread of its own; the core lives on the main thread.
        std::optional<PlatformError> failure;
        if (error)
            failure = PlatformError{QString::fromNSString(error.domain), int(error.code), QString::fromNSString(error.localizedDescription)};
        dispatch_async(dispatch_get_main_queue(), ^{
            (*shared)(failure);
        });
    };
    ((void (*)(id, SEL, id, id))objc_msgSend)(assertion, sel_registerName("activateWithConfiguration:completionHandler:"), config, handler);
    return result;
}

} // namespace ravlin
