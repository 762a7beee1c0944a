#include "MacAssessmentMode.h"

#import <Foundation/Foundation.h>
#include <dlfcn.h>
#include <objc/runtime.h>

// The selectors the private framework's classes answer, declared so that the
// compiler (and ARC) know their signatures and ownership.
@protocol RavlinAssessmentConfiguration
- (instancetype)initWithAllowedSystemItems:(NSArray*)items
                  allowedBundleIdentifiers:(NSArray*)bundleIdentifiers;
@end

@protocol RavlinAssessmentAssertion
- (void)activateWithConfiguration:(id)configuration completionHandler:(void (^)(NSError*))handler;
- (void)invalidate;
@end

namespace ravlin {
namespace {

const char* const frameworkPath =
    "/System/Library/PrivateFrameworks/MenuBarClientCore.framework/MenuBarClientCore";

class MacAssertion final : public AssessmentAssertion {
public:
    explicit MacAssertion(id<RavlinAssessmentAssertion> assertion) : m_assertion(assertion) {}
    void invalidate() override { [m_assertion invalidate]; }

private:
    id<RavlinAssessmentAssertion> m_assertion;
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
    if (![assertion
            instancesRespondToSelector:sel_registerName(
                                           "activateWithConfiguration:completionHandler:")] ||
        ![assertion instancesRespondToSelector:sel_registerName("invalidate")] ||
        ![config
            instancesRespondToSelector:sel_registerName(
                                           "initWithAllowedSystemItems:allowedBundleIdentifiers:")])
        return;
    m_assertionClass = (__bridge void*)assertion;
    m_configClass = (__bridge void*)config;
}

bool MacAssessmentMode::isAvailable() const
{
    return m_assertionClass && m_configClass;
}

std::shared_ptr<AssessmentAssertion>
MacAssessmentMode::activate(const std::vector<int>& allowedSystemItems,
                            const QStringList& allowedBundleIDs,
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
    id<RavlinAssessmentConfiguration> allocated = [configClass alloc];
    id config = allocated
                    ? [allocated initWithAllowedSystemItems:items allowedBundleIdentifiers:owners]
                    : nil;
    if (!config)
        return nullptr;

    Class assertionClass = (__bridge Class)m_assertionClass;
    id<RavlinAssessmentAssertion> assertion = [[assertionClass alloc] init];
    auto result = std::make_shared<MacAssertion>(assertion);
    auto shared =
        std::make_shared<std::function<void(std::optional<PlatformError>)>>(std::move(completion));
    void (^handler)(NSError*) = ^(NSError* error) {
      // The framework answers on a thread of its own; the core lives on the main thread.
      std::optional<PlatformError> failure;
      if (error)
          failure = PlatformError{QString::fromNSString(error.domain), int(error.code),
                                  QString::fromNSString(error.localizedDescription)};
      dispatch_async(dispatch_get_main_queue(), ^{
        (*shared)(failure);
      });
    };
    [assertion activateWithConfiguration:config completionHandler:handler];
    return result;
}

} // namespace ravlin
