// Cameras of the views. Every scene takes in this file; a change here, a lens for example, holds for all.
// Directions are those of the data: right-handed, Right and Up as long as the picture is wide and high.

#macro PerspectiveView(Location, Direction, Right, Up)
  camera { perspective location Location direction Direction right Right up Up }
#end

// Rays start in the plane of Location.
#macro OrthographicView(Location, Direction, Right, Up)
  camera { orthographic location Location direction Direction right Right up Up }
#end

// Equal angles from the middle are equal lengths; Angle goes across the picture's shorter side.
#macro FisheyeView(Location, Direction, Right, Up, Angle)
  camera { fisheye location Location direction Direction right Right up Up angle Angle }
#end

// Longitude along the width, latitude along the height. The renderer counts both the other way round.
#macro PanoramicView(Location, Direction, Right, Up, Across, High)
  camera { spherical location Location direction Direction right -Right up -Up angle Across High }
#end
