# Homebrew formula of the libraries and the program, built from a clone: brew install --HEAD ./plcalc.rb
# The clone's address is in HOMEBREW_PLCALC_SOURCE, as there is no public one yet.
class Plcalc < Formula
  desc "Plane surveying and land parcels: set-out, areas, division with proof"
  homepage "https://plcalc.example"
  license :cannot_represent # the owner has not chosen one yet
  head ENV.fetch("HOMEBREW_PLCALC_SOURCE", "https://plcalc.example/plcalc.git"), using: :git

  depends_on "cli11" => :build
  depends_on "cmake" => :build
  depends_on "ninja" => :build
  depends_on "nlohmann-json" => :build
  depends_on "pkg-config" => :build
  depends_on "cairo"
  depends_on "gdal"
  uses_from_macos "libxml2"

  def install
    system "cmake", "-S", ".", "-B", "build", "-G", "Ninja", "-DPLCALC_BUILD_TESTS=OFF", *std_cmake_args
    system "cmake", "--build", "build"
    system "cmake", "--install", "build"
  end

  test do
    (testpath/"square.csv").write "E,N\n0,0\n10,0\n10,10\n0,10\n"
    assert_match "50", shell_output("#{bin}/plcalc divide square.csv --parallel 1 --share 1/2")
  end
end
