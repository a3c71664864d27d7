% Plots the depth of a dive and the temperature of the water over time into a picture; for Matlab and Octave.
% The .mat comes from: unserialize -m -O dive
%
%   octave-cli plot_dive.m dive.mat dive.png          in Matlab: source = 'dive.mat'; picture = 'dive.png'; plot_dive
if exist('OCTAVE_VERSION', 'builtin')
  [source, picture] = argv(){:};
  warning('off', 'Octave:gnuplot-graphics');
  graphics_toolkit('gnuplot');  % draws without a screen
  form = {'-dpngcairo', '-S900,600'};
else
  form = {'-dpng'};
end
dive = load(source, 'depth', 'sea_water_temperature');

% What the sea can have given, at a time of the dive: of a damaged log some samples are neither.
part = @(time, share) interp1(linspace(0, 1, numel(time)), sort(time), share);
near = @(time) abs(time - median(time)) <= 1.5 * (part(time, 0.75) - part(time, 0.25));
credible = @(series, low, high) near(series.time(:)) & series.value(:) >= low & series.value(:) <= high;
deep = credible(dive.depth, -10, 12000);
warm = credible(dive.sea_water_temperature, -5, 50);

figure('visible', 'off');
subplot('position', [0.15 0.65 0.78 0.31]);
plot(dive.depth.time(deep), dive.depth.value(deep));
set(gca, 'ydir', 'reverse');
datetick('x', 'HH:MM');
ylabel(['depth (' char(dive.depth.units) ')']);

subplot('position', [0.15 0.18 0.78 0.31]);
plot(dive.sea_water_temperature.time(warm), dive.sea_water_temperature.value(warm));
datetick('x', 'HH:MM');
ylabel(['temp. (' char(dive.sea_water_temperature.units) ')']);
xlabel(datestr(median(dive.depth.time(deep)), 'yyyy-mm-dd'));
print(picture, form{:});
