#include <VanticRestKit/lumeno/Video/VideoAnalytics.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<VideoAnalytics>() {
    using namespace mapping;
    using A = VideoAnalytics;
    // clang-format off
    static const TypePlan& plan = object<A>(
        lenientObject("oztam",
            lenient<&A::oztamPublisherId>("publisherId"),
            lenient<&A::oztamMediaId>("mediaId"),
            lenient<&A::oztamClassification>("classification"),
            lenient<&A::oztamSeriesName>("seriesName"),
            lenient<&A::oztamSeriesId>("seriesId"),
            lenient<&A::oztamEpisodeName>("episodeName"),
            lenient<&A::oztamEpisodeId>("episodeId"),
            lenient<&A::oztamChannel>("channel"),
            lenient<&A::oztamUrl>("url"),
            lenient<&A::oztamMediaDuration>("mediaDuration"),
            lenient<&A::oztamMediaType>("mediaType")),
        lenientObject("dataLayer",
            lenient<&A::dataLayerId>("d_id"),
            lenient<&A::dataLayerContentType>("d_contentType"),
            lenient<&A::dataLayerContentSource>("d_contentSource"),
            lenient<&A::dataLayerUri>("d_uri"),
            lenient<&A::dataLayerProgramName>("d_program_name"),
            lenient<&A::dataLayerProgramId>("d_program_id"),
            lenient<&A::dataLayerdSeriesName>("d_series_name"),
            lenient<&A::dataLayerSeriesId>("d_series_id"),
            lenient<&A::dataLayerEpisodeName>("d_episode_name"),
            lenient<&A::dataLayerEpisodeId>("d_episode_id"),
            lenient<&A::dataLayerLanguage>("d_language"),
            lenient<&A::dataLayerCanonicalUrl>("d_canonicalUrl"),
            lenient<&A::dataLayerCategories>("d_categories"),
            lenient<&A::dataLayerClassification>("d_classification"),
            lenient<&A::dataLayerMediaDuration>("d_mediaDuration"),
            lenient<&A::dataLayerCaptionAvailable>("d_captionsAvailable"),
            lenient<&A::dataLayerStreamType>("d_streamType"),
            lenient<&A::dataLayerVideoType>("d_videoType"),
            lenient<&A::dataLayerTitleTitle>("d_title_title")));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
