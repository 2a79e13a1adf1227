! Properties of dry air from Fortran: od_prop and od_allprops with
! blank-padded names, declared by the module ondrel.
program prop_fortran
  use ondrel
  implicit none
  character(len=12) :: names(3)
  real(c_double) :: conc(3), props(16), h, t_back
  integer(c_int32_t) :: ierr, n, i
  character(len=8), parameter :: labels(16) = [character(len=8) :: 'P', 'T', 'v', 'd', &
       'h', 's', 'u', 'cv', 'dP_dT', 'dP_dv', 'd2P_dT2', 'd2P_dv2', 'd2P_dTdv', &
       'dCv_dT', 'eta', 'lambda']

  names = [character(len=12) :: 'N2', 'O2', 'AR']
  conc = [0.7809d0, 0.2095d0, 0.0096d0]
  n = 3

  call ondrel_sub()
  h = od_prop('PT', 1.01325d0, 25.0d0, n, names, conc, 'h', ierr)
  write (*, '(a, f12.6, a, i0)') 'air at 25 C: h = ', h, ' kJ/kg, error ', ierr
  t_back = od_prop('Ph', 1.01325d0, h, n, names, conc, 'T       ', ierr)
  write (*, '(a, f12.6, a, i0)') 'back to T = ', t_back, ' C, error ', ierr

  call od_allprops('PT', 1.01325d0, 25.0d0, n, names, conc, props(1), props(2), props(3), &
       props(4), props(5), props(6), props(7), props(8), props(9), props(10), props(11), &
       props(12), props(13), props(14), props(15), props(16), ierr)
  do i = 1, 16
     write (*, '(2x, a8, es18.9)') labels(i), props(i)
  end do
  write (*, '(a, i0)') 'od_allprops error ', ierr
  if (ierr /= 0 .or. abs(t_back - 25.0d0) > 1.0d-4) stop 1
end program prop_fortran
