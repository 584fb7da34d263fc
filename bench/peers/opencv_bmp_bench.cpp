// The same files read and written by OpenCV, between the file and its own picture.

#include <opencv2/imgcodecs.hpp>

#include <benchmark/benchmark.h>

#include "bench/bmp_file.h"

namespace {

cv::Mat Noise() {
    cv::Mat picture(bench::kBmpHeight, bench::kBmpWidth, CV_8UC3);
    cv::randu(picture, 0, 256);
    return picture;
}

void OpenCvReadBmp(benchmark::State& state) {
    cv::imwrite(bench::BmpPath(), Noise());
    for ([[maybe_unused]] auto _ : state) {
        const cv::Mat picture = cv::imread(bench::BmpPath(), cv::IMREAD_COLOR);
        benchmark::DoNotOptimize(picture.data);
    }
}
BENCHMARK(OpenCvReadBmp)->Unit(benchmark::kMillisecond);

void OpenCvWriteBmp(benchmark::State& state) {
    const cv::Mat picture = Noise();
    for ([[maybe_unused]] auto _ : state) {
        cv::imwrite(bench::BmpPath(), picture);
    }
}
BENCHMARK(OpenCvWriteBmp)->Unit(benchmark::kMillisecond);

}  // namespace
