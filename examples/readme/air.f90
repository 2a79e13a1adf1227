! Enthalpy and entropy of dry air at 1.01325 bar and 25 C, from Fortran.
program air
  use ondrel   ! explicit interfaces: the compiler checks every argument
  implicit none
  character(len=8) :: names(3)
  real(c_double) :: conc(3), h, s
  integer(c_int32_t) :: ierr

  names = [character(len=8) :: 'N2', 'O2', 'AR']
  conc = [0.7809d0, 0.2095d0, 0.0096d0]   ! mole fractions
  h = od_prop('PT', 1.01325d0, 25.0d0, 3, names, conc, 'h', ierr)   ! kJ/kg
  if (ierr /= 0) error stop 'od_prop failed'
  s = od_prop('PT', 1.01325d0, 25.0d0, 3, names, conc, 's', ierr)   ! kJ/(kg K)
  print '(a, f6.4, a, f6.4, a)', 'air at 1.01325 bar, 25 C: h = ', h, ' kJ/kg, s = ', s, ' kJ/(kg K)'
end program air
