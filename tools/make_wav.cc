// Writes the default update sound: a short, soft two-tone chime as a 16-bit
// mono PCM WAV file. Run by the build; the file goes beside the program.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

void Put(std::vector<unsigned char>& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const int rate = 22050;
  const double kPi = 3.14159265358979323846;
  std::vector<int16_t> samples;
  for (double frequency : {880.0, 1318.5}) {  // A5 then E6
    const int count = rate * 12 / 100;           // 120 ms each
    for (int i = 0; i < count; ++i) {
      const double fade = std::min(1.0, std::min(i, count - i) / (rate * 0.01));
      samples.push_back(static_cast<int16_t>(9000 * fade * std::sin(2 * kPi * frequency * i / rate)));
    }
  }
  std::vector<unsigned char> wav;
  const uint32_t data_bytes = static_cast<uint32_t>(samples.size() * 2);
  for (char c : {'R', 'I', 'F', 'F'}) wav.push_back(static_cast<unsigned char>(c));
  Put(wav, 36 + data_bytes, 4);
  for (char c : {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '}) wav.push_back(static_cast<unsigned char>(c));
  Put(wav, 16, 4);        // fmt chunk size
  Put(wav, 1, 2);         // PCM
  Put(wav, 1, 2);         // mono
  Put(wav, rate, 4);
  Put(wav, rate * 2, 4);  // bytes per second
  Put(wav, 2, 2);         // block align
  Put(wav, 16, 2);        // bits per sample
  for (char c : {'d', 'a', 't', 'a'}) wav.push_back(static_cast<unsigned char>(c));
  Put(wav, data_bytes, 4);
  for (int16_t s : samples) Put(wav, static_cast<uint16_t>(s), 2);
  std::FILE* f = std::fopen(argv[1], "wb");
  if (!f) return 1;
  const bool ok = std::fwrite(wav.data(), 1, wav.size(), f) == wav.size();
  return std::fclose(f) == 0 && ok ? 0 : 1;
}
